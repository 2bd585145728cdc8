"""What a type checker has to refuse, in each line with an E."""
import hdlbuildfile as hb

build = hb.Build.read(3)  # E: arg-type
build.path = build.path  # E: misc
build.library = None  # E: assignment
build.sources["a.vhd"]  # E: call-overload
build.add("a.vhd", "core", "VHDL", True)  # E: misc
build.check(True)  # E: misc
build.top_language = "VHDL"  # E: assignment
for number, library in build.order_table():  # E: misc
    pass
hb.Source().nothing  # E: attr-defined
with build as other:
    other.export("vunit")  # E: call-arg
print(build.plan().sources[0].needs + 1)  # E: operator
