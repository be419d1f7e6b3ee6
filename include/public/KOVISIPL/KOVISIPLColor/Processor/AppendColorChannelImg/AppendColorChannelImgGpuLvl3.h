#pragma once

#include "KOVIS/KOVISBaseProcessing/BaseGpuProcessingAlgorithm.h"
#include "KOVIS/KOVISBaseProcessing/DeclareProcessor.h"
#include "KOVISIPL/KOVISIPLAttributes/InSubGpuImg1.h"
#include "KOVISIPL/KOVISIPLAttributes/InSubGpuImg2.h"
#include "KOVISIPL/KOVISIPLAttributes/OutSubGpuImg.h"
#include "KOVISIPL/KOVISIPLColor/KOVISIPLColorExport.h"

#include <boost/shared_ptr.hpp>

namespace kovis::imaproc::color
{
/// Puts the channels of two images on a GPU into one, by a thread per pixel and channel. Attributes: InSubGpuImg1, InSubGpuImg2,
/// OutSubGpuImg, all to be given by set. Any pixel types; values saturate at the limits of the output's. Only the first slice and
/// time step are written. Nothing checks the sizes: all three images must have the same, and the output exactly the channels of
/// both inputs together. Built with or without device code; what fails on the device comes in the words of the CUDA runtime.
class KOVISIPLCOLOR_EXPORT AppendColorChannelImgGpuLvl3 : public processor::BaseGpuProcessingAlgorithm
{
    KOVIS_DECLARE_PROCESSOR(AppendColorChannelImgGpuLvl3);
    KOVIS_DECLARE_FUNCTION_SELECTOR(CudaFunctionSelector);
    KOVIS_DECLARE_ATTRIBUTE_ACCESS();

    /// Launches the kernel of these pixel types on the images of the attributes, and waits for it. 343 of them serve 1331 rows.
    template <class T1, class T2, class Tout>
    ProcessingResult<bool> genericKernelLauncher();

protected:
    KOVIS_DECLARE_INIT();
    const processor::CudaFunctionSelector& getFunctionSelector() const override;
    void getDataTypeIdColl(processor::DataTypeIdentifierColl& types) const override;

private:
    boost::shared_ptr<attr::InSubGpuImg1> m_inSubGpuImg1;
    boost::shared_ptr<attr::InSubGpuImg2> m_inSubGpuImg2;
    boost::shared_ptr<attr::OutSubGpuImg> m_outSubGpuImg;
};
} // namespace kovis::imaproc::color
