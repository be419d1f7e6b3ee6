"""The static initialisers of the colour module run in the stated order, read back from the built library: the entries of
.init_array, each with the source file whose local symbol it is. Units that are not listed have no initialiser at all.

Arguments: the library; toolkit or none, whether it holds device code."""

import re
import subprocess
import sys

ORDER = [
    "KOVISIPLColorLog.cpp",
    "KOVISIPLColorLogMessages.cpp",
    "ColorInitializerUtils.cpp",
    "OutputInitializerLogMessages.cpp",
    "AppendColorChannelImg.cpp",
    "AppendColorChannelImgGpuLvl3.cpp",
    "AppendColorChannelImgLvl1.cpp",
    "AppendColorChannelImgLvl2.cpp",
    "AppendColorChannelImgLvl3.cpp",
    "AppendColorChannelImgLvl3_avx.cpp",
    "AppendColorChannelImgLvl3_avx2.cpp",
    "AppendColorChannelImgLvl3_avx512.cpp",
    "AppendColorChannelImgLvl3_sse2.cpp",
    "ColorConvertImg.cpp",
    "ColorConvertImgLvl1.cpp",
    "ColorConvertImgLvl2.cpp",
    "ColorConvertImgLvl3.cpp",
    "ColorConvertImgLvl3_avx.cpp",
    "ColorConvertImgLvl3_avx2.cpp",
    "ColorConvertImgLvl3_fma3_avx2.cpp",
    "ColorConvertImgLvl3_sse2.cpp",
    "LightnessImgLvl1.cpp",
    "LightnessImgLvl2.cpp",
    "LightnessImgLvl3.cpp",
    "LightnessImgLvl3_avx.cpp",
    "LightnessImgLvl3_avx2.cpp",
    "LightnessImgLvl3_avx512.cpp",
    "LightnessImgLvl3_sse2.cpp",
    "ProcessorLogMessages.cpp",
    "ColorRuleUtils.cpp",
    "RuleLogMessages.cpp",
]
# Last of all, where it was built: the device code enters itself in the CUDA runtime.
DEVICE_CODE = "AppendColorChannelImg_knl.cu"
# The runtime's own units, in whatever place its archive has them.
RUNTIME = ("cudart_global.cpp", "cuda_runtime_api.cpp")


def readelf(option, path):
    return subprocess.run(["readelf", "-W", option, path], capture_output=True, text=True, check=True).stdout.splitlines()


def init_array(path):
    """The addresses in .init_array, in the order in which the loader calls them."""
    for line in readelf("-S", path):
        match = re.search(r"\]\s+\.init_array\s+INIT_ARRAY\s+([0-9a-f]+)\s+[0-9a-f]+\s+([0-9a-f]+)", line)
        if match:
            begin = int(match.group(1), 16)
            end = begin + int(match.group(2), 16)
    entries = {}
    for line in readelf("-r", path):
        match = re.match(r"([0-9a-f]{16})\s+[0-9a-f]+\s+R_X86_64_RELATIVE\s+([0-9a-f]+)", line)
        if match and begin <= int(match.group(1), 16) < end:
            entries[int(match.group(1), 16)] = int(match.group(2), 16)
    assert len(entries) == (end - begin) // 8, "an entry of .init_array has no relocation"
    return [entries[place] for place in sorted(entries)]


def functions_by_address(path):
    """Local functions: address to (source file, name). In the table, a file's local symbols follow its own entry."""
    functions = {}
    source = ""
    for line in readelf("-s", path):
        fields = line.split()
        if len(fields) < 7 or not fields[0].endswith(":"):
            continue
        if fields[3] == "FILE":
            source = fields[7] if len(fields) > 7 else ""
        elif fields[3] == "FUNC" and fields[4] == "LOCAL" and len(fields) > 7:
            functions.setdefault(int(fields[1], 16), (source, fields[7]))
    return functions


def main(path, kind):
    order = ORDER + ([DEVICE_CODE] if kind == "toolkit" else [])
    functions = functions_by_address(path)
    found = []
    for address in init_array(path):
        source, name = functions.get(address, ("?", f"{address:x}"))
        # nvcc hands the host compiler a file of its own: tmpxft_<numbers>_<name>.cudafe1.cpp.
        source = re.sub(r"^tmpxft_[0-9a-f_-]*\d_(.*)\.cudafe1\.cpp$", r"\1.cu", source)
        if name == "frame_dummy" or source in RUNTIME:
            continue
        if not found or found[-1] != source:
            found.append(source)
    print("order of initialisation:", *found, sep="\n  ")
    if found != order:
        print("expected:", *order, sep="\n  ")
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1], sys.argv[2]))
