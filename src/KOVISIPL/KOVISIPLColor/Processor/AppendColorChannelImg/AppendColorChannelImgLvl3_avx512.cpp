#include "KOVIS/KOVISBaseProcessing/FunctionRegistration.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImgLvl3Rows.h"

KOVIS_REGISTER_VARIANT(kovis::imaproc::color,
                       "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImgLvl3_avx512",
                       enterAppendTable, eInstructionSet::eIS_AVX512);
