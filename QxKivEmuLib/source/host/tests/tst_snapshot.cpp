#include "CTestModel.h"
#include "host/items/CSnapshot.h"

#include <functional>
#include <gtest/gtest.h>

namespace {

/// Never ends, or gives null where a model should not.
class CEndlessIterator final : public IModelIterator
{
public:
    explicit CEndlessIterator(IModelItem &item) : m_item(item) {}
    void next() override { ++steps; }
    IModelItem *current() override { return &m_item; }

    size_t steps = 0;

private:
    IModelItem &m_item;
};

struct SNullItem final : IModelItem
{
    const char *idText() override { return nullptr; }
    const char *typeName() override { return nullptr; }
    int propertyCount() override { return 3; }
    IModelProperty *property(int index) override { return index == 1 ? &nullProperty : nullptr; }
    const char *renderCommands() override { return nullptr; }

    struct : IModelProperty
    {
        const char *name() override { return nullptr; }
        const char *storageTypeName() override { return nullptr; }
        const char *valueText() override { return nullptr; }
        int32_t type() override { return 0; }
        int32_t valueAsInteger() override { return 0; }
    } nullProperty;
};

std::string described(const kivemu::CSnapshot &snapshot, size_t item)
{
    std::string text = snapshot.label(item) + ":";
    kivemu::CSnapshot::CProperties properties = snapshot.properties(item);
    for (kivemu::CSnapshot::SProperty p; properties.next(p);)
        text += " " + std::string(p.name) + "=" +
                (p.isNumber ? std::to_string(p.number) : "'" + std::string(p.text) + "'");
    return text;
}

} // namespace

TEST(Snapshot, keepsNothingOfTheModelOrOfTheWalkBefore)
{
    kivemu::CSnapshot snapshot;
    {
        CTestModel model;
        for (int i = 0; i < 50; ++i)
            model.add("old commands").set("label", std::string(100, 'x'));
        CTestIterator iterator(model);
        snapshot.take(&iterator);
    }
    EXPECT_EQ(snapshot.renderCommands(49), "old commands");
    EXPECT_EQ(described(snapshot, 0).size(), described(snapshot, 8).size());
    CTestModel model;
    model.add("new commands");
    CTestIterator iterator(model);
    snapshot.take(&iterator);
    EXPECT_EQ(snapshot.itemCount(), 1U);
    EXPECT_EQ(snapshot.renderCommands(0), "new commands");
    EXPECT_EQ(snapshot.commandsIndex(0), 0U);
    CTestIterator again(model);
    again.next();
    again.next();
    snapshot.take(&again);
    EXPECT_FALSE(snapshot.hasScreen());
    EXPECT_NE(snapshot.problem(), "");
    EXPECT_EQ(snapshot.screenText("color"), "");
}

TEST(Snapshot, propertyBytesTellStatesApart)
{
    const auto bytesOf = [](const std::function<void(STestItem &)> &change) {
        CTestModel model;
        change(model.add("x"));
        CTestIterator iterator(model);
        kivemu::CSnapshot snapshot;
        snapshot.take(&iterator);
        return std::string(snapshot.propertyBytes(0));
    };
    const std::string plain = bytesOf([](STestItem &) {});
    EXPECT_EQ(bytesOf([](STestItem &) {}), plain);
    EXPECT_NE(bytesOf([](STestItem &i) { i.set("width", 21); }), plain);
    EXPECT_NE(bytesOf([](STestItem &i) { i.set("width", "20"); }), plain);
    EXPECT_NE(bytesOf([](STestItem &i) { i.set("a", "").set("b", ""); }),
              bytesOf([](STestItem &i) { i.set("a", "b").set("", ""); }));
}

TEST(Snapshot, walkWithoutAnEndIsCutAndReported)
{
    STestItem item("Kiv_Test_T", "1", "");
    CEndlessIterator iterator(item);
    kivemu::CSnapshot snapshot;
    snapshot.take(&iterator);
    EXPECT_EQ(snapshot.itemCount(), 100000U);
    EXPECT_LE(iterator.steps, 100001U);
    EXPECT_NE(snapshot.problem().find("100000"), std::string::npos);
}

TEST(Snapshot, nullsAreEmptyTexts)
{
    kivemu::CSnapshot snapshot;
    snapshot.take(nullptr);
    EXPECT_NE(snapshot.problem(), "");
    struct COneItem final : IModelIterator
    {
        void next() override { ++at; }
        IModelItem *current() override { return at < 2 ? &item : nullptr; }
        SNullItem item;
        int at = 0;
    } one;
    snapshot.take(&one);
    ASSERT_EQ(snapshot.itemCount(), 1U);
    EXPECT_EQ(described(snapshot, 0), ": =''");
    EXPECT_EQ(snapshot.kind(0), kivemu::CSnapshot::EKind::Unknown);
}
