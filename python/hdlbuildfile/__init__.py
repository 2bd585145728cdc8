"""The builds of HDL simulation projects: read, ask, change, check, scan and convert them.

    import hdlbuildfile as hb
    build = hb.Build.read("build.xml")
    for source in build.order("VHDL"):
        print(source.library, source.path)
"""
import collections.abc

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
    ConversionError,
    Error,
    Finding,
    Format,
    Imported,
    Language,
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
    "ConversionError",
    "Error",
    "Finding",
    "Format",
    "Imported",
    "Language",
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

collections.abc.Sequence.register(SourceList)
