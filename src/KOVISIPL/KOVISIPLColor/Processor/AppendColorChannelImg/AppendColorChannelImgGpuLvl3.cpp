#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImgGpuLvl3.h"

#include "KOVIS/KOVISBaseImageTools/extractBufferDataCollToGpu.h"
#include "KOVIS/KOVISBaseProcessing/FunctionRegistration.h"
#include "KOVIS/KOVISCore/ComputerInfoPool.h"
#include "KOVIS/KOVISImage/CudaImageFactory.h"
#include "KOVIS/KOVISImageProcessing/CudaKernelTable.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/Gpu/AppendColorChannelImg_knlLauncher.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorProcessorTraits.h"

KOVIS_PROCESSOR_TRAITS(kovis::imaproc::color, AppendColorChannelImgGpuLvl3, BaseGpuProcessingAlgorithm,
                       kovis::imaproc::color::ColorProcessorTraits, "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg", 0);

namespace kovis::imaproc::color
{
KOVIS_DEFINE_PROCESSOR(AppendColorChannelImgGpuLvl3);
KOVIS_DEFINE_FUNCTION_SELECTOR(AppendColorChannelImgGpuLvl3, CudaFunctionSelector);
KOVIS_DEFINE_SET(AppendColorChannelImgGpuLvl3, m_inSubGpuImg1, m_inSubGpuImg2, m_outSubGpuImg);

KOVIS_INSTANTIATE_SET(KOVISIPLCOLOR_EXPORT, AppendColorChannelImgGpuLvl3, attr::InSubGpuImg1);
KOVIS_INSTANTIATE_SET(KOVISIPLCOLOR_EXPORT, AppendColorChannelImgGpuLvl3, attr::InSubGpuImg2);
KOVIS_INSTANTIATE_SET(KOVISIPLCOLOR_EXPORT, AppendColorChannelImgGpuLvl3, attr::OutSubGpuImg);

BoolResult AppendColorChannelImgGpuLvl3::initDerived(AttributeColl& attributes, OutputInitializerMap& outputInitializers,
                                                     processor::ProcessorDispatchPolicy& dispatchPolicy,
                                                     boost::shared_ptr<processor::BaseRule>& rule,
                                                     const processor::eProcessorRulePolicy& rulePolicy)
{
    processor::makeAttributes(attributes, m_inSubGpuImg1, m_inSubGpuImg2, m_outSubGpuImg);
    outputInitializers.clear();
    return processor::finishInit<AppendColorChannelImgGpuLvl3>(dispatchPolicy, rule, rulePolicy, &processor::none);
}

void AppendColorChannelImgGpuLvl3::getDataTypeIdColl(processor::DataTypeIdentifierColl& types) const
{
    types.init(getTypeIdentifier(m_inSubGpuImg1->getImage().getBufferType()),
               getTypeIdentifier(m_inSubGpuImg2->getImage().getBufferType()),
               getTypeIdentifier(m_outSubGpuImg->getImage().getBufferType()));
}

namespace details
{
/// What kernels are told of the output image and of the device.
static kovis::gpu::LauncherInfo getLauncherInfo(const image::BaseImage& output, int device)
{
    kovis::gpu::LauncherInfo info;
    info.m_reservedValue = 0;
    info.m_sizeX = output.getSizeX();
    info.m_sizeY = output.getSizeY();
    info.m_sizeZ = output.getSizeZ();
    info.m_sizeC = output.getSizeC();
    info.m_sizeT = output.getSizeT();
    const hard::GpuDescription& gpus =
        core::ComputerInfoPool::getInstance().getLocalComputerInfo().getComputerDescription().getGpuDescription();
    info.m_nbMultiProcessors = gpus.getNbMultiProcessors(device);
    info.m_maxThreadsPerMultiProcessor = gpus.getMaxThreadsPerMultiProcessor(device);
    info.m_maxThreadsPerBlock = gpus.getMaxThreadsPerBlock(device);
    info.m_blockSize2d = gpus.getBlockSize2d(device);
    return info;
}
} // namespace details

template <class T1, class T2, class Tout>
ProcessingResult<bool> AppendColorChannelImgGpuLvl3::genericKernelLauncher()
{
    const boost::shared_ptr<image::BaseImage> output = m_outSubGpuImg->getStorage();
    Tout** const out = image::tools::extractBufferDataCollToGpu<Tout>(image::getCudaImage(*output));
    T1 const** const in1 = image::tools::extractBufferDataCollToGpu<T1>(image::getCudaImage(m_inSubGpuImg1->getImage()));
    T2 const** const in2 = image::tools::extractBufferDataCollToGpu<T2>(image::getCudaImage(m_inSubGpuImg2->getImage()));
    const kovis::gpu::LauncherInfo info = details::getLauncherInfo(*output, getDevice());
    const kovis::gpu::CudaResult result = gpu::AppendColorChannelImg_knlLauncher<T1, T2, Tout>(
        &info, m_inSubGpuImg1->getStorage()->getSizeC(), m_inSubGpuImg2->getStorage()->getSizeC(), in1, in2, out);
    return ProcessingResult<bool>(result.m_bSuccess, result.m_text);
}

namespace details
{
/// The launchers, for their rows.
struct AppendColorChannelImgGpuLvl3Kernels
{
    template <class T1, class T2, class Tout>
    auto operator()() const
    {
        return &AppendColorChannelImgGpuLvl3::genericKernelLauncher<T1, T2, Tout>;
    }
};

static bool enterAppendLaunchers(const SourcePlace& place)
{
    return enterCudaTable<3, AppendColorChannelImgGpuLvl3>(AppendColorChannelImgGpuLvl3Kernels(), place);
}
} // namespace details
} // namespace kovis::imaproc::color

KOVIS_REGISTER_PROCESSOR(kovis::imaproc::color::AppendColorChannelImgGpuLvl3, makeClassMutexes);
KOVIS_REGISTER_FUNCTIONS(kovis::imaproc::color, AppendColorChannelImgGpuLvl3, enterAppendLaunchers);
