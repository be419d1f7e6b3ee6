# Third-party packages of the libraries. Tools, tests and benchmarks look for theirs in their own folders.

find_package(Threads REQUIRED)
find_package(Boost 1.74 REQUIRED COMPONENTS filesystem thread)
find_package(log4cplus REQUIRED)
find_package(TBB REQUIRED)
find_package(nlohmann_json 3.7 REQUIRED)
