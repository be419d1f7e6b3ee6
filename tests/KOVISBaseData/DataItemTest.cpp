#include "KOVIS/KOVISBaseData/BaseDataItemNode.h"
#include "KOVIS/KOVISBaseData/DataItemLeaf.h"

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace kovis
{
namespace
{
class TestNode : public BaseDataItemNode
{
public:
    explicit TestNode(bool& bDestroyed) : m_bDestroyed(bDestroyed) {}
    ~TestNode() override { m_bDestroyed = true; }

private:
    bool& m_bDestroyed;
};
} // namespace

TEST(DataItem, aNodeIsDestroyedThroughItsBase)
{
    bool bDestroyed = false;
    boost::shared_ptr<BaseDataItemNode> node(new TestNode(bDestroyed));
    EXPECT_NE(nullptr, dynamic_cast<const TestNode*>(node.get()));
    node.reset();
    EXPECT_TRUE(bDestroyed);
}

TEST(DataItem, aLeafHoldsANamedValue)
{
    DataItemLeaf<std::vector<float>> leaf("matrix");
    EXPECT_EQ("matrix", leaf.getName());
    EXPECT_TRUE(leaf.getValue().empty());
    leaf.setValue({1.0f, 2.0f});
    EXPECT_EQ((std::vector<float>{1.0f, 2.0f}), leaf.getValue());
    leaf.accessValue().push_back(3.0f);
    EXPECT_EQ(3u, leaf.getValue().size());
    EXPECT_EQ(0, DataItemLeaf<int>("number").getValue());
    EXPECT_EQ(5, DataItemLeaf<int>("number", 5).getValue());
}
} // namespace kovis
