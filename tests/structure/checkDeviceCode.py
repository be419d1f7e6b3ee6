"""The colour module holds a kernel of the channel append for each of the 343 triples of pixel types: machine code for every
architecture that the build names, and PTX for the newest. Read back from the library itself, without the toolkit's tools.

Arguments: the library; the architectures, as 52;75; the one of the PTX. Without the last two, device code was left out: there
is nothing to look at."""

import itertools
import re
import struct
import subprocess
import sys

# Mangled: signed and unsigned char, short, int, and float.
TYPES = "ahstijf"
KERNEL = re.compile(rb"_ZN5kovis7imaproc5color3gpu25AppendColorChannelImg_knlI([a-z]{3})EEv")
EXPECTED = {"".join(triple) for triple in itertools.product(TYPES, repeat=3)}


def section(path, name):
    """The bytes of a section."""
    lines = subprocess.run(["readelf", "-SW", path], capture_output=True, text=True, check=True).stdout.splitlines()
    for line in lines:
        match = re.search(r"\] %s\s+\w+\s+[0-9a-f]+ ([0-9a-f]+) ([0-9a-f]+)" % re.escape(name), line)
        if match:
            offset, size = (int(number, 16) for number in match.groups())
            with open(path, "rb") as file:
                file.seek(offset)
                return file.read(size)
    return b""


def kernels_of_elf(image):
    """The architecture of a device image, and the triples whose code stands in it as a section of its own."""
    flags, = struct.unpack_from("<I", image, 48)
    table, = struct.unpack_from("<Q", image, 40)
    entry_size, nb_entries, names_index = struct.unpack_from("<HHH", image, 58)
    headers = [struct.unpack_from("<IIQQQQ", image, table + index * entry_size) for index in range(nb_entries)]
    names = image[headers[names_index][4]:headers[names_index][4] + headers[names_index][5]]
    found = set()
    for name, _, _, _, _, size in headers:
        text = names[name:names.index(b"\0", name)]
        match = KERNEL.match(text[len(b".text."):]) if text.startswith(b".text.") else None
        if match and size > 0:
            found.add(match.group(1).decode())
    # The number stands in one of the two low bytes, by the age of the toolkit.
    return [flags & 0xFF, flags >> 8 & 0xFF], found


def main(path, architectures="", ptx=""):
    if not architectures:
        print("skipped: device code was left out of this build")
        return 77
    fatbin = section(path, ".nv_fatbin")
    problems = []
    of_architecture = {int(architecture): set() for architecture in architectures.split(";")}
    for match in re.finditer(rb"\x7fELF\x02\x01", fatbin):
        numbers, found = kernels_of_elf(fatbin[match.start():])
        for architecture in of_architecture:
            if architecture in numbers:
                of_architecture[architecture] |= found
    for architecture, found in of_architecture.items():
        print(f"sm_{architecture}: {len(found)} kernels")
        if found != EXPECTED:
            problems.append(f"sm_{architecture} lacks {sorted(EXPECTED - found)} and has {sorted(found - EXPECTED)} beside")
    found = set()
    for match in re.finditer(rb"\.target sm_%s\b([^\0]*)" % ptx.encode(), fatbin):
        found |= {code.decode() for code in re.findall(rb"\.entry " + KERNEL.pattern, match.group(1))}
    print(f"PTX for compute_{ptx}: {len(found)} kernels")
    if found != EXPECTED:
        problems.append(f"the PTX lacks {sorted(EXPECTED - found)}")
    print("\n".join(problems))
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
