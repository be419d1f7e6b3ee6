#include "KOVIS/KOVISBaseProcessing/KernelVariant.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl3Rows.h"

// The initialiser runs on every processor: nothing here is compiled for the set; the kernels stand in units of their own.

namespace kovis::imaproc::color
{
namespace details
{
static bool functionRegistration()
{
    ColorConvertImgLvl3Rows<eInstructionSet::eIS_FMA3, eInstructionSet::eIS_AVX2> rows(
        {"bool kovis::imaproc::color::details::functionRegistration()",
         "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl3_fma3_avx2", __LINE__});
    rows.registerTable<2>(ColorConvertImgLvl3Kernels<eInstructionSet::eIS_FMA3, eInstructionSet::eIS_AVX2>());
    return rows.report();
}
} // namespace details

namespace
{
/// The owner of this unit's mutexes.
struct Variant;

[[maybe_unused]] const bool g_bEntered =
    processor::enterVariant<Variant, eInstructionSet::eIS_FMA3, eInstructionSet::eIS_AVX2>(&details::functionRegistration);
} // namespace
} // namespace kovis::imaproc::color
