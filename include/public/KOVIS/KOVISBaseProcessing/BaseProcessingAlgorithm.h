#pragma once

#include "KOVIS/KOVISBaseProcessing/AlgorithmFunctionSelector.h"
#include "KOVIS/KOVISBaseProcessing/BaseDataParser.h"
#include "KOVIS/KOVISBaseProcessing/BaseSyncProcessor.h"
#include "KOVIS/KOVISBaseProcessing/KOVISBaseProcessingExport.h"

#include <boost/shared_ptr.hpp>

#include <vector>

namespace kovis::processor
{
/// A processor whose work is one call of a kernel, picked by the data types of its attributes and the instruction sets of the
/// computer. mainProcess: pick the kernel; preProcess; make the parsers; call the kernel; commit the parsers; postProcess. The
/// parsers are cleared on every way out. They must agree in their numbers of elements; where these are 0 there is nothing to
/// call.
class KOVISBASEPROCESSING_EXPORT BaseProcessingAlgorithm : public BaseSyncProcessor
{
public:
    ~BaseProcessingAlgorithm() override;

protected:
    BaseProcessingAlgorithm();

    BoolResult mainProcess() override;
    virtual const AlgorithmFunctionSelector& getFunctionSelector() const = 0;
    virtual const InstructionSetsIdentifier& getForcedInstructionSets() const = 0;
    virtual void getDataTypeIdColl(DataTypeIdentifierColl& types) const = 0;
    virtual void initDataParserColl(std::vector<boost::shared_ptr<BaseDataParser>>& parsers) = 0;
    virtual void clearDataParserColl() = 0;
    virtual BoolResult preProcess();
    virtual BoolResult postProcess();
    /// For a kernel without parsers: elements, exact elements, and the first one's index. Zeros here.
    virtual void getNoParseInfo(unsigned long& nbElements, unsigned long& nbExactElements, unsigned long& firstElement) const;

private:
    BoolResult runFunction(const AlgorithmFunctionIdentifier& identifier);
};
} // namespace kovis::processor
