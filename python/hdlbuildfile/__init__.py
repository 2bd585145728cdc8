"""The builds of HDL simulation projects: read, ask, change, check, scan and convert them.

    import hdlbuildfile as hb
    build = hb.Build.read("build.xml")
    for source in build.order("VHDL"):
        print(source.library, source.path)
"""
from collections import abc as _abc

from ._core import (
    Build,
    Source,
    SourceIterator,
    SourceList,
    __version__,
    check_file,
    export_formats,
    import_build,
    import_formats,
)
from ._records import (
    ChangedError,
    ConversionError,
    Error,
    ExistsError,
    Finding,
    Format,
    Imported,
    Language,
    LockError,
    MissingError,
    Place,
    Plan,
    PlanSettings,
    PlanSource,
    ReadError,
    Severity,
    SourceGone,
    Top,
    WriteError,
)

__all__ = [
    "Build",
    "ChangedError",
    "ConversionError",
    "Error",
    "ExistsError",
    "Finding",
    "Format",
    "Imported",
    "Language",
    "LockError",
    "MissingError",
    "Place",
    "Plan",
    "PlanSettings",
    "PlanSource",
    "ReadError",
    "Severity",
    "Source",
    "SourceGone",
    "SourceIterator",
    "SourceList",
    "Top",
    "WriteError",
    "__version__",
    "check_file",
    "export_formats",
    "import_build",
    "import_formats",
]

_abc.Sequence.register(SourceList)

# Wherever they are made, they are known by this name.
for _name in __all__:
    if isinstance(globals()[_name], type):
        globals()[_name].__module__ = __name__

