#include "KOVIS/KOVISBaseProcessing/FunctionRegistration.h"
#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/LightnessImgLvl3Rows.h"

KOVIS_REGISTER_VARIANT(kovis::imaproc::color, "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/LightnessImgLvl3_sse2",
                       enterLightnessTable, eInstructionSet::eIS_SSE2);
