"""No library asks the loader for the CUDA driver or its runtime: each loads on a machine that has neither.

Arguments: the libraries, each as name=path."""

import re
import subprocess
import sys


def needed(path):
    """The libraries that the loader must find for this one."""
    said = subprocess.run(["readelf", "-dW", path], capture_output=True, text=True, check=True).stdout
    return re.findall(r"\(NEEDED\).*\[(.+)\]", said)


def main(libraries):
    problems = []
    nb_needed = 0
    for library in libraries:
        name, path = library.split("=", 1)
        names = needed(path)
        nb_needed += len(names)
        problems += [f"{name} needs {other}" for other in names if other.startswith(("libcuda", "libnvidia"))]
    if nb_needed == 0:
        problems.append("no library needs any other: they were not read")
    print("\n".join(problems) or f"{len(libraries)} libraries load without a driver")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
