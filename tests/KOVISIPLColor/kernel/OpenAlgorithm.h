#pragma once

#include "KOVIS/KOVISBaseProcessing/AlgorithmFunctionSelector.h"
#include "KOVIS/KOVISBaseProcessing/BaseDataParser.h"
#include "KOVIS/KOVISBaseProcessing/ProcessingInfo.h"

#include <boost/shared_ptr.hpp>

#include <vector>

namespace kovis::test
{
/// A strip processor of class T with its parsers and the kernels of its rows within reach.
template <class T>
class OpenAlgorithm : public T
{
public:
    void bind() { this->initDataParserColl(m_parsers); }
    const std::vector<boost::shared_ptr<processor::BaseDataParser>>& getParsers() const { return m_parsers; }

    BoolResult call(const processor::AlgorithmFunctionIdentifier& row, unsigned long nbPixels)
    {
        processor::ProcessingInfo info;
        info.m_nbElements = nbPixels;
        info.m_nbExactElements = nbPixels;
        return (this->*row.getFunction())(info);
    }

private:
    std::vector<boost::shared_ptr<processor::BaseDataParser>> m_parsers;
};
} // namespace kovis::test
