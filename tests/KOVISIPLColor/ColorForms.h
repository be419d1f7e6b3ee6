#pragma once

#include "KOVIS/KOVISBaseProcessing/AlgorithmFunctionSelector.h"
#include "KOVIS/KOVISCore/isAvailable.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl3.h"
#include "support/ModelForm.h"

// The forms of the colour kernels, and how to have one of them run.

namespace kovis::test
{
struct ColorForm
{
    const ModelForm* m_form;
    eInstructionSet::domain m_first;
    eInstructionSet::domain m_second;
};

/// Weakest first.
inline constexpr ColorForm g_colorForms[] = {{&g_genericForm, eInstructionSet::eIS_Generic, eInstructionSet::eIS_Generic},
                                             {&g_sse2Form, eInstructionSet::eIS_SSE2, eInstructionSet::eIS_SSE2},
                                             {&g_avxForm, eInstructionSet::eIS_AVX, eInstructionSet::eIS_AVX},
                                             {&g_avx2Form, eInstructionSet::eIS_AVX2, eInstructionSet::eIS_AVX2},
                                             {&g_fma3Form, eInstructionSet::eIS_FMA3, eInstructionSet::eIS_AVX2}};

inline bool isAvailable(const ColorForm& form)
{
    return core::isAvailable(form.m_first) && core::isAvailable(form.m_second);
}

/// AVX has kernels from float to float alone.
inline bool isForFloatAlone(const ColorForm& form)
{
    return form.m_form == &g_avxForm;
}

/// The form that has to run where nothing is forced: the last one of the list that this computer has.
inline const ModelForm& getBestForm(bool bFloatToFloat)
{
    const ModelForm* best = nullptr;
    for (const ColorForm& form : g_colorForms)
    {
        if (isAvailable(form) && (bFloatToFloat || !isForFloatAlone(form)))
        {
            best = form.m_form;
        }
    }
    return *best;
}

/// Level 3 runs this form alone, as long as the object lives.
class ForcedForm
{
public:
    explicit ForcedForm(const ColorForm& form)
    {
        processor::InstructionSetsIdentifier sets;
        sets.init(form.m_first, form.m_second);
        imaproc::color::ColorConvertImgLvl3::forceInstructionSets(sets);
    }
    ~ForcedForm() { imaproc::color::ColorConvertImgLvl3::releaseForcedInstructionSets(); }
    ForcedForm(const ForcedForm&) = delete;
    ForcedForm& operator=(const ForcedForm&) = delete;
};
} // namespace kovis::test
