#pragma once

// A three-level processor over images, as the modules' ones are: level 1 cuts into slices, level 2 into strips, level 3 has
// kernels. Each sample of the output is the input's sample times a factor, plus one.

#include "KOVIS/KOVISBaseProcessing/BaseProcessingAlgorithm.h"
#include "KOVIS/KOVISBaseProcessing/BaseProcessorDispatcher.h"
#include "KOVIS/KOVISImageProcessing/ImageBufferTypeIdentifier.h"
#include "KOVIS/KOVISImageProcessing/ImageRule.h"
#include "KOVIS/KOVISImageProcessing/ImageSplit.h"
#include "KOVIS/KOVISImageProcessing/OutputInitializer.h"
#include "KOVIS/KOVISImageProcessing/StripParserInfo.h"
#include "support/ToyProcessor.h"

#include <mutex>

namespace kovis::test
{
class InToyImg : public imaproc::BaseInputImageAttribute
{
    KOVIS_TOY_NAMES(InToyImg)
};
class InToyImg2 : public imaproc::BaseInputImageAttribute
{
    KOVIS_TOY_NAMES(InToyImg2)
};
class OutToyImg : public imaproc::BaseOutputImageAttribute
{
    KOVIS_TOY_NAMES(OutToyImg)
};
class InToyStrip : public imaproc::BaseInputYStripColor2dAttribute
{
    KOVIS_TOY_NAMES(InToyStrip)
};
class OutToyStrip : public imaproc::BaseOutputYStripColor2dAttribute
{
    KOVIS_TOY_NAMES(OutToyStrip)
};
class OutToyGreyStrip : public imaproc::BaseOutputYStrip2dAttribute
{
    KOVIS_TOY_NAMES(OutToyGreyStrip)
};
class InToyFactor : public ToyAttribute<false, true>
{
    KOVIS_TOY_NAMES(InToyFactor)
};

/// What a test sees of the kernels' calls, and what it makes of them. One for all; reset it before each test.
struct ToyKernelLog
{
    std::mutex m_mutex;
    std::vector<processor::ProcessingInfo> m_infos;
    std::vector<const int*> m_factors;
    std::vector<boost::shared_ptr<processor::BaseProcessor>> m_processors; ///< kept, so that no two have the same address
    std::function<BoolResult(unsigned long nbCalls)> m_hook;               ///< called under no lock

    static ToyKernelLog& get()
    {
        static ToyKernelLog g_log;
        return g_log;
    }
    void reset()
    {
        m_infos.clear();
        m_factors.clear();
        m_processors.clear();
        m_hook = nullptr;
    }
};

class ToyImgLvl3 : public ToyProcessor<ToyImgLvl3, processor::BaseProcessingAlgorithm>
{
    KOVIS_TOY_NAMES(ToyImgLvl3)

public:
    template <class T>
    ProcessingResult<bool> runKernel(const processor::ProcessingInfo& info)
    {
        ToyKernelLog& log = ToyKernelLog::get();
        unsigned long nbCalls = 0;
        const boost::shared_ptr<int> factor = this->getStorage<InToyFactor>();
        {
            const std::lock_guard lock(log.m_mutex);
            log.m_infos.push_back(info);
            log.m_factors.push_back(factor.get());
            log.m_processors.push_back(boost::static_pointer_cast<processor::BaseProcessor>(shared_from_this()));
            nbCalls = log.m_infos.size();
        }
        auto& in = dynamic_cast<imaproc::RawYStripUserColor2dParser<T, imaproc::BaseInputYStripColor2dAttribute>&>(*m_inParser);
        auto& out =
            dynamic_cast<imaproc::RawYStripUserColor2dParser<T, imaproc::BaseOutputYStripColor2dAttribute>&>(*m_outParser);
        const unsigned long sizeC = m_in->getBaseImageYStripColor2d().getSizeC();
        for (unsigned long c = 0; c < sizeC; ++c)
        {
            const T* const pIn = in.accessBuffer(c);
            T* const pOut = out.accessBuffer(c);
            // Whole blocks, past the exact elements, as vector kernels do.
            for (unsigned long i = 0; i < info.m_nbElements; ++i)
            {
                pOut[i] = static_cast<T>(pIn[i] * static_cast<T>(*factor) + T(1));
            }
        }
        return log.m_hook ? log.m_hook(nbCalls) : BoolResult(true);
    }

protected:
    BoolResult initDerived(std::vector<boost::shared_ptr<processor::BaseAttribute>>& attributes,
                           std::map<std::string, boost::shared_ptr<processor::BaseOutputInitializer>>& initializers,
                           processor::ProcessorDispatchPolicy& policy, boost::shared_ptr<processor::BaseRule>& rule,
                           const processor::eProcessorRulePolicy& rulePolicy) override
    {
        m_in = boost::make_shared<InToyStrip>();
        m_out = boost::make_shared<OutToyStrip>();
        attributes = {m_in, boost::make_shared<InToyFactor>(), m_out};
        initializers.clear();
        policy.initDefault();
        if (rulePolicy == processor::ePRP_Rules)
        {
            rule = imaproc::matchPlanarSize(m_in, m_out) && imaproc::matchBufferType(m_in, m_out);
        }
        return BoolResult(true);
    }
    const processor::AlgorithmFunctionSelector& getFunctionSelector() const override
    {
        static const FilledSelector g_selector;
        return g_selector;
    }
    const processor::InstructionSetsIdentifier& getForcedInstructionSets() const override
    {
        static const processor::InstructionSetsIdentifier g_nothing;
        return g_nothing;
    }
    void getDataTypeIdColl(processor::DataTypeIdentifierColl& types) const override
    {
        imaproc::ImageBufferTypeIdentifier bufferType;
        bufferType.init(m_in->getImageBufferType());
        types.init(bufferType);
    }
    void initDataParserColl(std::vector<boost::shared_ptr<processor::BaseDataParser>>& parsers) override
    {
        using imaproc::BaseInputYStripColor2dAttribute;
        using imaproc::BaseOutputYStripColor2dAttribute;
        using imaproc::RawStripParserMode;
        using imaproc::StripParserInfo;
        m_inParser =
            StripParserInfo<RawStripParserMode, BaseInputYStripColor2dAttribute, BaseInputYStripColor2dAttribute>::createParser(
                m_in);
        m_outParser =
            StripParserInfo<RawStripParserMode, BaseOutputYStripColor2dAttribute, BaseOutputYStripColor2dAttribute>::createParser(
                m_out);
        parsers = {m_inParser, m_outParser};
    }
    void clearDataParserColl() override
    {
        m_inParser.reset();
        m_outParser.reset();
    }

private:
    struct FilledSelector : processor::AlgorithmFunctionSelector
    {
        FilledSelector()
        {
            enter<unsigned char>(image::eIBT_UInt8);
            enter<unsigned char>(image::eIBT_UInt8_8);
            enter<unsigned short>(image::eIBT_UInt16);
            enter<float>(image::eIBT_Real);
        }
        template <class T>
        void enter(image::eImageBufferType type)
        {
            imaproc::ImageBufferTypeIdentifier bufferType;
            bufferType.init(type);
            processor::DataTypeIdentifierColl types;
            types.init(bufferType);
            processor::InstructionSetsIdentifier generic;
            generic.init(eInstructionSet::eIS_Generic);
            processor::AlgorithmFunctionIdentifier row;
            row.init(types, generic, 0, static_cast<processor::AlgorithmFunctionIdentifier::Function>(&ToyImgLvl3::runKernel<T>));
            registerFunction(row);
        }
    };

    boost::shared_ptr<InToyStrip> m_in;
    boost::shared_ptr<OutToyStrip> m_out;
    boost::shared_ptr<processor::BaseDataParser> m_inParser;
    boost::shared_ptr<processor::BaseDataParser> m_outParser;
};

/// Levels 1 and 2: an input image, the factor, an output image.
template <class TDerived>
class ToyImgLevel : public ToyProcessor<TDerived, processor::BaseAsync1Processor>
{
protected:
    using processor::BaseAsync1Processor::retrieveProvider;

    BoolResult initDerived(std::vector<boost::shared_ptr<processor::BaseAttribute>>& attributes,
                           std::map<std::string, boost::shared_ptr<processor::BaseOutputInitializer>>& initializers,
                           processor::ProcessorDispatchPolicy& policy, boost::shared_ptr<processor::BaseRule>& rule,
                           const processor::eProcessorRulePolicy& rulePolicy) override
    {
        m_in = boost::make_shared<InToyImg>();
        m_out = boost::make_shared<OutToyImg>();
        attributes = {m_in, boost::make_shared<InToyFactor>(), m_out};
        initializers.clear();
        policy.initDefault();
        if (rulePolicy == processor::ePRP_Rules)
        {
            rule = imaproc::matchSize(imaproc::eMIST_XYZT, m_in, m_out) && imaproc::matchBufferType(m_in, m_out);
        }
        return BoolResult(true);
    }

    boost::shared_ptr<InToyImg> m_in;
    boost::shared_ptr<OutToyImg> m_out;
};

class ToyImgLvl2 : public ToyImgLevel<ToyImgLvl2>
{
    KOVIS_TOY_NAMES(ToyImgLvl2)

protected:
    using ToyImgLevel::retrieveProvider;

    processor::RetrievalResult retrieveProvider(const core::BasePriority& priority, core::ActionProviderPtr& provider) override
    {
        using namespace imaproc;
        const auto dispatcher = boost::make_shared<processor::DynamicProcessorDispatcher<ToyImgLvl3>>();
        const auto out = boost::make_shared<ImageYStripColor2dSplit<ToyImgLvl3, image::BaseImage, OutToyStrip>>();
        BoolResult result = out->initBase(this->getStorage<OutToyImg>(), eSAT_InImage, eSPD_TopToBottom, false);
        const auto factor = processor::dynamicNoSplit<ToyImgLvl3, InToyFactor>(this->getStorage<InToyFactor>());
        const auto in = boost::make_shared<ImageYStripColor2dSplit<ToyImgLvl3, const image::BaseImage, InToyStrip>>();
        result = result ? in->initBase(this->getStorage<InToyImg>(), eSAT_InImage, eSPD_TopToBottom, false) : result;
        result =
            result ? dispatcher->initBase(priority, std::vector<boost::shared_ptr<processor::BaseDynamicSplit>>{in, factor, out})
                   : result;
        provider = dispatcher;
        return result ? processor::RetrievalResult() : processor::RetrievalResult(processor::eRS_Failed, result.getMessage());
    }
};

class ToyImgLvl1 : public ToyImgLevel<ToyImgLvl1>
{
    KOVIS_TOY_NAMES(ToyImgLvl1)

protected:
    using ToyImgLevel::retrieveProvider;

    BoolResult initDerived(std::vector<boost::shared_ptr<processor::BaseAttribute>>& attributes,
                           std::map<std::string, boost::shared_ptr<processor::BaseOutputInitializer>>& initializers,
                           processor::ProcessorDispatchPolicy& policy, boost::shared_ptr<processor::BaseRule>& rule,
                           const processor::eProcessorRulePolicy& rulePolicy) override
    {
        const BoolResult result = ToyImgLevel::initDerived(attributes, initializers, policy, rule, rulePolicy);
        initializers[OutToyImg::getObjectNameStr()] =
            imaproc::duplicateInOut<InToyImg, OutToyImg>(m_out, m_in, image::eIBT_None, imaproc::eIIDP_AsInput);
        return result;
    }
    processor::RetrievalResult retrieveProvider(const core::BasePriority& priority, core::ActionProviderPtr& provider) override
    {
        using namespace imaproc;
        const auto dispatcher = boost::make_shared<processor::StaticProcessorDispatcher<ToyImgLvl2>>();
        const auto out = boost::make_shared<SubImageSplit<ToyImgLvl2, OutToyImg>>();
        BoolResult result = out->initBase(eSIST_Slices, eVPT_Slices, eCPT_AllChannels, eTPT_Steps, this->getStorage<OutToyImg>());
        const auto factor = processor::staticNoSplit<ToyImgLvl2, InToyFactor>(this->getStorage<InToyFactor>());
        const auto in = boost::make_shared<SubImageSplit<ToyImgLvl2, InToyImg>>();
        result =
            result ? in->initBase(eSIST_Slices, eVPT_Slices, eCPT_AllChannels, eTPT_Steps, this->getStorage<InToyImg>()) : result;
        result = result
                     ? dispatcher->initBase(priority, std::vector<boost::shared_ptr<processor::BaseStaticSplit>>{in, factor, out})
                     : result;
        provider = dispatcher;
        return result ? processor::RetrievalResult() : processor::RetrievalResult(processor::eRS_Failed, result.getMessage());
    }
};
} // namespace kovis::test
