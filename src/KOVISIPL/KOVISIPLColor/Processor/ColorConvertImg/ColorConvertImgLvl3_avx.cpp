#include "KOVIS/KOVISBaseProcessing/FunctionRegistration.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl3Rows.h"

KOVIS_REGISTER_VARIANT(kovis::imaproc::color, "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl3_avx",
                       enterConversionFloatRow, eInstructionSet::eIS_AVX);
