#include "Commands.h"
#include "OutputFile.h"
#include "SavedRun.h"
#include "ToolError.h"

#include "KOVISIPL/KOVISIPLColor/Processor/AppendColorChannelImg/AppendColorChannelImgLvl1.h"
#include "KOVISIPL/KOVISIPLColor/Processor/ColorConvertImg/ColorConvertImgLvl1.h"
#include "KOVISIPL/KOVISIPLColor/Processor/LightnessImg/LightnessImgLvl1.h"

#include <boost/pointer_cast.hpp>

// A saved processor runs by the verb that it came from, with the options of the command line above those of the file.

namespace kovis::tool
{
namespace
{
void takePictureOptions(PictureOptions& target, const RunOptions& options, const SavedRun& saved)
{
    target = options;
    if (target.type.empty())
        target.type = saved.type;
}

/// A processor may be saved before all is set; it then waits for more than pictures.
void checkIsSet(const std::string& file, const processor::BaseProcessor& processor)
{
    for (const std::string& name : processor.getAttributeNameColl())
    {
        const auto attribute = processor.getAttribute(name);
        if (attribute->isArchivable() && !attribute->isUsable())
            throw ToolError(file, "holds a processor whose " + name + " is not set", "set it before the processor is saved");
    }
}

/// For the verbs of one input: also the input and its space.
template <class TOptions>
TOptions makeOptions(const RunOptions& options, const SavedRun& saved)
{
    if (options.inputs.size() != 1)
        throw ToolError(options.file, "takes one picture, not " + std::to_string(options.inputs.size()), "name one picture",
                        eMisused);
    TOptions made;
    takePictureOptions(made, options, saved);
    made.input = options.inputs.front();
    made.from = options.from.empty() ? saved.from : options.from;
    return made;
}
} // namespace

void runSaved(const RunOptions& options, std::ostream& out, std::ostream& err)
{
    checkNotTheInput(options.output, options.file);
    const SavedRun saved = readSavedRun(options.file);
    checkIsSet(options.file, *saved.processor);
    if (const auto conversion = boost::dynamic_pointer_cast<imaproc::color::ColorConvertImgLvl1>(saved.processor))
    {
        auto made = makeOptions<ConvertOptions>(options, saved);
        made.processor = conversion;
        made.processorFile = options.file;
        runConvert(made, out, err);
    }
    else if (const auto lightness = boost::dynamic_pointer_cast<imaproc::color::LightnessImgLvl1>(saved.processor))
    {
        auto made = makeOptions<LightnessOptions>(options, saved);
        made.processor = lightness;
        runLightness(made, out, err);
    }
    else if (const auto append = boost::dynamic_pointer_cast<imaproc::color::AppendColorChannelImgLvl1>(saved.processor))
    {
        AppendOptions made;
        takePictureOptions(made, options, saved);
        if (!options.from.empty())
            throw ToolError("--from", "is of no use for an append, which has no space of its own", "leave it out", eMisused);
        made.inputs = options.inputs;
        made.processor = append;
        runAppend(made, out, err);
    }
    else
        throw ToolError(options.file, "holds a " + saved.processor->getClassName() + ", which this program does not run",
                        "give a file of a ColorConvertImgLvl1, a LightnessImgLvl1 or an AppendColorChannelImgLvl1");
}
} // namespace kovis::tool
