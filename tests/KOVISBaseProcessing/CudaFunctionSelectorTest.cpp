// The table of GPU kernels, and the processor that picks from it, without a device: no kernel here touches one.
#include "KOVIS/KOVISBaseProcessing/BaseGpuProcessingAlgorithm.h"
#include "KOVIS/KOVISBaseProcessing/KOVISBaseProcessingLog.h"
#include "support/FakeCudaRuntime.h"
#include "support/ToyProcessor.h"

#include <boost/make_shared.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{
using namespace kovis;
using namespace kovis::processor;
using testing::HasSubstr;

// Before any test asks for devices.
test::FakeCudaRuntime& g_runtime = test::FakeCudaRuntime::install();

class Type : public BaseDataTypeIdentifier
{
public:
    explicit Type(int id) : m_id(id) {}
    int getId() const override { return m_id; }
    const char* getName() const override { return "toy"; }

private:
    int m_id;
};

DataTypeIdentifierColl makeKey(int first, int second)
{
    DataTypeIdentifierColl key;
    key.init(Type(first), Type(second));
    return key;
}

/// Writes down what is called, in order.
class ToyGpuAlgorithm : public test::ToyProcessor<ToyGpuAlgorithm, BaseGpuProcessingAlgorithm>
{
    KOVIS_TOY_NAMES(ToyGpuAlgorithm)

public:
    BoolResult launch()
    {
        m_calls += "launch on " + std::to_string(g_runtime.m_device) + " ";
        return BoolResult(m_bLaunches, m_bLaunches ? "" : "the launch failed");
    }
    static CudaFunctionIdentifier::Function getLaunch()
    {
        return static_cast<CudaFunctionIdentifier::Function>(&ToyGpuAlgorithm::launch);
    }

    CudaFunctionSelector m_selector;
    std::string m_calls;
    int m_type = 1;
    bool m_bPrepares = true;
    bool m_bLaunches = true;

protected:
    BoolResult initDerived(std::vector<boost::shared_ptr<BaseAttribute>>&,
                           std::map<std::string, boost::shared_ptr<BaseOutputInitializer>>&, ProcessorDispatchPolicy&,
                           boost::shared_ptr<BaseRule>&, const eProcessorRulePolicy&) override
    {
        return BoolResult(true);
    }
    const CudaFunctionSelector& getFunctionSelector() const override { return m_selector; }
    void getDataTypeIdColl(DataTypeIdentifierColl& types) const override { types = makeKey(m_type, 2); }
    BoolResult preProcess() override
    {
        m_calls += "pre ";
        return BoolResult(m_bPrepares, m_bPrepares ? "" : "not prepared");
    }
    BoolResult postProcess() override
    {
        m_calls += "post ";
        return BoolResult(true);
    }
};

CudaFunctionIdentifier makeRow(const DataTypeIdentifierColl& key, CudaFunctionIdentifier::Function function)
{
    CudaFunctionIdentifier row;
    row.init(key, function);
    return row;
}

TEST(CudaFunctionSelector, GivesTheRowOfTheKey)
{
    CudaFunctionSelector selector;
    EXPECT_TRUE(selector.registerFunction(makeRow(makeKey(1, 2), ToyGpuAlgorithm::getLaunch())).getResult());
    EXPECT_TRUE(selector.registerFunction(makeRow(makeKey(2, 1), ToyGpuAlgorithm::getLaunch())).getResult());
    CudaFunctionIdentifier row;
    ASSERT_TRUE(selector.select(makeKey(2, 1), row).getResult());
    EXPECT_EQ(makeKey(2, 1), row.getDataTypes());
    EXPECT_EQ(ToyGpuAlgorithm::getLaunch(), row.getFunction());
    const BoolResult none = selector.select(makeKey(2, 2), row);
    EXPECT_FALSE(none.getResult());
    EXPECT_THAT(none.getMessage(), HasSubstr("toy (2), toy (2)"));
    EXPECT_EQ(2U, selector.getFunctions().size());
}

TEST(CudaFunctionSelector, RefusesRowsThatAreNone)
{
    CudaFunctionSelector selector;
    EXPECT_FALSE(selector.registerFunction(makeRow(DataTypeIdentifierColl(), ToyGpuAlgorithm::getLaunch())).getResult());
    EXPECT_FALSE(selector.registerFunction(makeRow(makeKey(1, 2), nullptr)).getResult());
    EXPECT_TRUE(selector.registerFunction(makeRow(makeKey(1, 2), ToyGpuAlgorithm::getLaunch())).getResult());
    const BoolResult doubled = selector.registerFunction(makeRow(makeKey(1, 2), ToyGpuAlgorithm::getLaunch()));
    EXPECT_FALSE(doubled.getResult());
    EXPECT_THAT(doubled.getMessage(), HasSubstr("toy (1), toy (2)"));
    EXPECT_EQ(1U, selector.getFunctions().size());
}

class GpuAlgorithm : public testing::Test
{
protected:
    GpuAlgorithm()
    {
        m_processor->m_selector.registerFunction(makeRow(makeKey(1, 2), ToyGpuAlgorithm::getLaunch()));
        EXPECT_TRUE(m_processor->init(ePRP_Rules).getResult());
    }

    std::string getError() const
    {
        try
        {
            executeSyncRun(m_processor);
        }
        catch (const BaseException& e)
        {
            return e.what();
        }
        return std::string();
    }

    boost::shared_ptr<ToyGpuAlgorithm> m_processor = boost::make_shared<ToyGpuAlgorithm>();
};

TEST_F(GpuAlgorithm, LaunchesOnItsDeviceBetweenTheTwoProcesses)
{
    g_runtime.m_device = 5;
    EXPECT_EQ("", getError());
    EXPECT_EQ("pre launch on 0 post ", m_processor->m_calls);
    EXPECT_EQ(5, g_runtime.m_device);
    g_runtime.m_device = 0;
}

TEST_F(GpuAlgorithm, EndsWithWhatFails)
{
    m_processor->m_bLaunches = false;
    EXPECT_THAT(getError(), HasSubstr("the launch failed"));
    EXPECT_EQ("pre launch on 0 ", m_processor->m_calls);
    m_processor->m_calls.clear();
    m_processor->m_bPrepares = false;
    EXPECT_THAT(getError(), HasSubstr("not prepared"));
    EXPECT_EQ("pre ", m_processor->m_calls);
    m_processor->m_calls.clear();
    m_processor->m_type = 7;
    EXPECT_THAT(getError(), HasSubstr("toy (7), toy (2)"));
    EXPECT_EQ("", m_processor->m_calls);
}
} // namespace
