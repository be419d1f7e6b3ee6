#pragma once

#include "KOVIS/KOVISBaseProcessing/BaseProcessor.h"
#include "KOVIS/KOVISBaseProcessing/KOVISBaseProcessingExport.h"
#include "KOVIS/KOVISUtil/ProcessingResult.h"
#include "KOVIS/KOVISUtil/getRelativeFromRoot.h"

#include <boost/shared_ptr.hpp>
#include <boost/thread/mutex.hpp>

#include <map>
#include <string>
#include <vector>

namespace kovis::processor
{
/// Makes processors by type name, and tells what there is. One per process; all operations are safe from any thread.
class KOVISBASEPROCESSING_EXPORT ProcessorFactory
{
public:
    /// What is known of a processor class.
    struct ProcessorInfo
    {
        std::string m_name;
        std::string m_toolTip;
        std::string m_module;
        std::string m_includePath; ///< the class's header, relative to the include root that contains it
        boost::shared_ptr<BaseProcessor> (*m_creator)() = nullptr;
    };

    static ProcessorFactory& getInstance();

    /// False, with a message, if that type name is registered already: the first one stays.
    BoolResult registerProcessor(const std::string& typeName, const ProcessorInfo& info);
    /// False, with a message, if that type name is not registered.
    BoolResult unRegisterProcessor(const std::string& typeName);

    /// Enters T under its type name. T gives its header's path and the include roots by getSourceLocation().
    template <class T>
    BoolResult registerProcessor();

    bool isRegistred(const std::string& typeName) const;
    std::vector<std::string> getTypeNameColl() const;
    /// Throws KOVISBaseProcessingException for a type name that is not registered.
    ProcessorInfo getProcessorInfo(const std::string& typeName) const;
    boost::shared_ptr<BaseProcessor> createProcessor(const std::string& typeName) const;

private:
    ProcessorFactory();
    ~ProcessorFactory();

    mutable boost::mutex m_mutex;
    std::map<std::string, ProcessorInfo> m_infos;
};

/// Where a processor's header lies, as absolute paths fixed when its library was built.
struct ProcessorSourceLocation
{
    const char* m_module;
    const char* m_header;
    const char* m_includeRoots[3]; ///< public, partner, private
};

template <class T>
BoolResult ProcessorFactory::registerProcessor()
{
    const ProcessorSourceLocation& location = T::getSourceLocation();
    ProcessorInfo info;
    info.m_name = T::getObjectNameStr();
    info.m_toolTip = T::getToolTipStr();
    info.m_module = location.m_module;
    for (const char* root : location.m_includeRoots)
    {
        info.m_includePath = getRelativeFromRoot(root, location.m_header).string();
        if (!info.m_includePath.empty())
        {
            break;
        }
    }
    info.m_creator = &T::createBaseProcessor;
    return registerProcessor(T::getTypeName(), info);
}

/// Enters T into the processor factory for as long as it lives. The static g_bProcessorRegistrator is defined as an explicit
/// specialisation in T's own unit, which fixes its place in the order of initialisation.
template <class T>
class ProcessorRegistrator
{
public:
    ProcessorRegistrator() { ProcessorFactory::getInstance().registerProcessor<T>(); }
    ~ProcessorRegistrator() { ProcessorFactory::getInstance().unRegisterProcessor(T::getTypeName()); }
    ProcessorRegistrator(const ProcessorRegistrator&) = delete;
    ProcessorRegistrator& operator=(const ProcessorRegistrator&) = delete;

    static ProcessorRegistrator g_bProcessorRegistrator;
};
} // namespace kovis::processor
