#include "GpuAppend.h"

#include "ToolError.h"

#include "KOVIS/KOVISCore/ComputerInfoPool.h"
#include "KOVIS/KOVISCore/Scheduler.h"
#include "KOVIS/KOVISImage/CudaImageFactory.h"
#include "KOVIS/KOVISImage/ImageFactory.h"
#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImgLvl2.h"

#include <boost/make_shared.hpp>

namespace kovis::tool
{
namespace
{
using ConstImagePtr = boost::shared_ptr<const image::BaseImage>;
using ImagePtr = boost::shared_ptr<image::BaseImage>;

constexpr const char* g_withoutGpu = "leave --gpu out to append on the processor";

/// An image of these channels, with all else as the model has it.
ImagePtr createLike(const image::BaseImage& model, unsigned long nbChannels)
{
    image::ColorGeometry color;
    color.initUser(nbChannels);
    image::HomogeneousImageGeometry geometry;
    geometry.init(model.getGeometry().getVolumeGeometry(), color, model.getGeometry().getTemporalGeometry(), model.getSizeX(),
                  model.getSizeY(), model.getBufferType());
    return image::createImage(geometry);
}

void appendSlice(const ConstImagePtr& first, const ConstImagePtr& second, const ImagePtr& result)
{
    const auto output = image::createCudaImage(result->getGeometry());
    const auto append = boost::make_shared<imaproc::color::AppendColorChannelImgLvl2>();
    append->init();
    append->set<imaproc::attr::InSubColorImg2d1>(image::uploadImage(*first));
    append->set<imaproc::attr::InSubColorImg2d2>(image::uploadImage(*second));
    append->set<imaproc::attr::OutColorImg>(output);
    core::ActionProviderPtr provider;
    requireTaken(append->tryToLaunchGpuProcess(core::BasePriority(), provider));
    core::runProvider(provider);
    image::copyToHost(*output, *result);
}
} // namespace

std::string getGpuName()
{
    const hard::GpuDescription& gpus =
        core::ComputerInfoPool::getInstance().getLocalComputerInfo().getComputerDescription().getGpuDescription();
    if (gpus.getNbDevices() == 0)
        throw ToolError("--gpu", "there is no usable GPU: " + gpus.getReasonForNone(), g_withoutGpu);
    return gpus.getName(0);
}

void requireTaken(const processor::RetrievalResult& answer)
{
    if (answer.getStatus() != processor::eRS_Provided)
        throw ToolError("--gpu", answer.getMessage().empty() ? "the GPU was not taken" : answer.getMessage(), g_withoutGpu);
}

ImagePtr appendOnGpu(const ConstImagePtr& first, const ConstImagePtr& second)
{
    const ImagePtr result = createLike(*first, first->getSizeC() + second->getSizeC());
    for (unsigned long t = 0; t < result->getSizeT(); ++t)
    {
        for (unsigned long z = 0; z < result->getSizeZ(); ++z)
            appendSlice(image::getSlice2d(first, z, t), image::getSlice2d(second, z, t), image::getSlice2d(result, z, t));
    }
    return result;
}
} // namespace kovis::tool
