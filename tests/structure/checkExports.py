"""Each library exports what it owns and nothing else: no symbol of another library, of Boost or of the standard library, and no
unique symbol, for each of those would tie libraries together and keep the module in the process after dlclose.

Arguments: Library=path for every library."""

import re
import subprocess
import sys

# Prefixes of qualified names, per library. A name that fits another library's longer prefix is not the library's own.
OWN = {
    "KOVISUtil": ["kovis::"],
    "KOVISSerialization": ["kovis::"],
    "KOVISHardware": ["kovis::hard::", "kovis::gpu::"],
    "KOVISBaseData": ["kovis::"],
    "KOVISCore": ["kovis::core::"],
    "KOVISImage": ["kovis::image::"],
    "KOVISBaseImageTools": ["kovis::image::"],
    "KOVISBaseProcessing": ["kovis::processor::"],
    "KOVISImageProcessing": ["kovis::imaproc::"],
    "KOVISIPLAttributes": ["kovis::imaproc::attr::"],
    "KOVISIPLUtility": ["kovis::imaproc::util::", "kovis::MessageMapRegistrator<kovis::imaproc::util::"],
    "KOVISIPLGlobalMeasure": ["kovis::imaproc::glbmsr::", "kovis::MessageMapRegistrator<kovis::imaproc::glbmsr::"],
    "KOVISIPLColor": ["kovis::imaproc::color::", "TargetColorSpaceOutputInitializer", "kovis::MessageMapRegistrator<kovis::imaproc::color::"],
}
# Namespaces that have a library of their own: `kovis::` alone does not cover them.
NAMESPACES = sorted({prefix for prefixes in OWN.values() for prefix in prefixes if prefix.startswith("kovis::")}, key=len)
SPECIAL = re.compile(r"^(typeinfo name for|typeinfo for|vtable for|VTT for|construction vtable for|guard variable for|"
                     r"(?:non-virtual|virtual|covariant return) thunk to) ")


def qualified_name(demangled):
    """The qualified name that a symbol stands for: without what it is of, without the return type of a template."""
    name = SPECIAL.sub("", demangled)
    depth = 0
    start = 0
    for place, letter in enumerate(name):
        if letter in "<":
            depth += 1
        elif letter in ">":
            depth -= 1
        elif letter == "(" and depth == 0:
            if name.startswith("(anonymous namespace)", place):
                continue
            break
        elif letter == " " and depth == 0 and "operator" not in name[start:place]:
            start = place + 1
    return name[start:]


def belongs(name, prefixes):
    # The entry of a library's own message table is an explicit specialisation of the platform's template for its own type.
    name = name.removeprefix("kovis::MessageMapRegistrator<")
    fitting = [prefix for prefix in prefixes if name.startswith(prefix)]
    if not fitting:
        return False
    longest = max(fitting, key=len)
    return not any(name.startswith(other) for other in NAMESPACES if len(other) > len(longest))


def exported(path):
    """(kind, mangled name) of each symbol that the library defines for others."""
    text = subprocess.run(["nm", "-D", "--defined-only", path], capture_output=True, text=True, check=True).stdout
    for line in text.splitlines():
        fields = line.split()
        yield fields[-2], fields[-1].split("@")[0]


def demangle(names):
    text = subprocess.run(["c++filt"], input="\n".join(names) + "\n", capture_output=True, text=True, check=True).stdout
    return text.splitlines()


def main(arguments):
    problems = []
    homes = {}
    for argument in arguments:
        library, path = argument.split("=", 1)
        symbols = [(kind, name) for kind, name in exported(path) if kind != "A"]
        for (kind, mangled), name in zip(symbols, demangle([name for _, name in symbols])):
            if kind == "u":
                problems.append(f"{library}: unique symbol {name}")
            if not belongs(qualified_name(name), OWN[library]):
                problems.append(f"{library}: {name} is not its own ({kind})")
            homes.setdefault(mangled, []).append((library, name))
        if not symbols:
            problems.append(f"{library}: exports nothing")
    for owners in homes.values():
        if len(owners) > 1:
            problems.append(f"{owners[0][1]}: exported by {', '.join(library for library, _ in owners)}")
    print("\n".join(problems) if problems else f"{len(homes)} exported symbols, each in its own library alone")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
