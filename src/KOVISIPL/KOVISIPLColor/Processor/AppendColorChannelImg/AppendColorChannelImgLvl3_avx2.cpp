#include "KOVIS/KOVISBaseProcessing/KernelVariant.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImgLvl3Rows.h"

// The initialiser runs on every processor: nothing here is compiled for the set; the kernels stand in units of their own.

namespace kovis::imaproc::color
{
namespace details
{
static bool functionRegistration()
{
    AppendColorChannelImgLvl3Rows<eInstructionSet::eIS_AVX2> rows(
        {"bool kovis::imaproc::color::details::functionRegistration()",
         "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImgLvl3_avx2", __LINE__});
    rows.registerTable<3>(AppendColorChannelImgLvl3Kernels<eInstructionSet::eIS_AVX2>());
    return rows.report();
}
} // namespace details

namespace
{
/// The owner of this unit's mutexes.
struct Variant;

[[maybe_unused]] const bool g_bEntered =
    processor::enterVariant<Variant, eInstructionSet::eIS_AVX2>(&details::functionRegistration);
} // namespace
} // namespace kovis::imaproc::color
