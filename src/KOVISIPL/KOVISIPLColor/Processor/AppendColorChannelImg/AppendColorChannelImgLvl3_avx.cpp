#include "KOVIS/KOVISBaseProcessing/FunctionRegistration.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImgLvl3Rows.h"

KOVIS_REGISTER_VARIANT(kovis::imaproc::color,
                       "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImgLvl3_avx",
                       enterAppendFloatRow, eInstructionSet::eIS_AVX);
