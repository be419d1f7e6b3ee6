#include "KOVIS/KOVISBaseProcessing/KernelVariant.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImgLvl3Rows.h"

// The initialiser runs on every processor: nothing here is compiled for the set; the kernels stand in units of their own.

namespace kovis::imaproc::color
{
namespace details
{
static bool functionRegistration()
{
    return enterAppendTable<eInstructionSet::eIS_AVX512>(
        {"bool kovis::imaproc::color::details::functionRegistration()",
         "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImgLvl3_avx512", __LINE__});
}
} // namespace details

namespace
{
/// The owner of this unit's mutexes.
struct Variant;

[[maybe_unused]] const bool g_bEntered =
    processor::enterVariant<Variant, eInstructionSet::eIS_AVX512>(&details::functionRegistration);
} // namespace
} // namespace kovis::imaproc::color
