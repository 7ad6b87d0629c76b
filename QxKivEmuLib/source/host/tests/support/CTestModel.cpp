#include "CTestModel.h"

#include <algorithm>

namespace {

template<typename Value>
void setIn(STestItem &item, const std::string &key, const Value &value)
{
    const auto known = std::find_if(item.properties.begin(), item.properties.end(),
                                    [&](const STestProperty &p) { return p.key == key; });
    if (known == item.properties.end())
        item.properties.emplace_back(key, value);
    else
        *known = STestProperty(key, value);
}

} // namespace

STestItem &STestItem::set(const std::string &key, int32_t value)
{
    setIn(*this, key, value);
    return *this;
}

STestItem &STestItem::set(const std::string &key, const std::string &value)
{
    setIn(*this, key, value);
    return *this;
}

CTestModel::CTestModel() : m_screen("Kiv_Screen_T", "", "")
{
    m_screen.set("name", "Page 1").set("color", "#102030");
}

STestItem &CTestModel::add(const std::string &commands, const std::string &type)
{
    const std::string id = std::to_string(m_items.size() + 1);
    m_items.push_back(std::make_unique<STestItem>(type, id, commands));
    return m_items.back()
        ->set("x_coordinate", 10)
        .set("y_coordinate", 20)
        .set("width", 20)
        .set("height", 10);
}
