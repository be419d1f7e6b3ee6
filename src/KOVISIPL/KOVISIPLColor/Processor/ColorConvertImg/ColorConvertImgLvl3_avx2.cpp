#include "KOVIS/KOVISBaseProcessing/FunctionRegistration.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl3Rows.h"

KOVIS_REGISTER_VARIANT(kovis::imaproc::color, "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl3_avx2",
                       enterConversionTable, eInstructionSet::eIS_AVX2);
