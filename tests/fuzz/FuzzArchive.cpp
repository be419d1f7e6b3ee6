#include "fuzz/readArchive.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    kovis::test::readArchive(data, size);
    return 0;
}
