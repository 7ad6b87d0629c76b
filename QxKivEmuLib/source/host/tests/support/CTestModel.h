#pragma once

#include "IModelItem.h"
#include "IModelIterator.h"
#include "IModelProperty.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

/// A small model for tests: a screen and its items, walked by an iterator that each request makes.
struct STestProperty final : IModelProperty
{
    STestProperty(std::string propertyName, int32_t value)
        : key(std::move(propertyName)), number(value), isNumber(true)
    {
    }
    STestProperty(std::string propertyName, std::string value)
        : key(std::move(propertyName)), text(std::move(value))
    {
    }
    const char *name() override { return key.c_str(); }
    const char *storageTypeName() override { return isNumber ? "int" : "string"; }
    const char *valueText() override { return text.c_str(); }
    int32_t type() override { return isNumber ? 0 : 6; }
    int32_t valueAsInteger() override { return number; }

    std::string key;
    std::string text;
    int32_t number = 0;
    bool isNumber = false;
};

struct STestItem final : IModelItem
{
    STestItem(std::string typeName_, std::string idText_, std::string renderCommands_)
        : type(std::move(typeName_)), id(std::move(idText_)), commands(std::move(renderCommands_))
    {
    }
    const char *idText() override { return id.c_str(); }
    const char *typeName() override { return type.c_str(); }
    int propertyCount() override { return static_cast<int>(properties.size()); }
    IModelProperty *property(int index) override { return &properties[static_cast<size_t>(index)]; }
    const char *renderCommands() override { return commands.c_str(); }

    /// Sets a property, of an int32_t or a text; an old one keeps its place.
    template<typename Value>
    STestItem &set(const std::string &key, const Value &value)
    {
        const auto known = std::find_if(properties.begin(), properties.end(),
                                        [&](const STestProperty &p) { return p.key == key; });
        if (known == properties.end())
            properties.emplace_back(key, value);
        else
            *known = STestProperty(key, value);
        return *this;
    }

    std::string type;
    std::string id;
    std::string commands;
    std::vector<STestProperty> properties;
};

class CTestModel
{
public:
    CTestModel() { m_screen.set("name", "Page 1").set("color", "#102030"); }

    STestItem &screen() { return m_screen; }
    /// A box of 20 x 10 at (10, 20) with render commands; ids count from 1.
    STestItem &add(const std::string &commands, const std::string &type = "Kiv_Test_T")
    {
        const std::string id = std::to_string(m_items.size() + 1);
        STestItem &item = *m_items.emplace_back(std::make_unique<STestItem>(type, id, commands));
        return item.set("x_coordinate", 10)
            .set("y_coordinate", 20)
            .set("width", 20)
            .set("height", 10);
    }
    STestItem &item(size_t index) { return *m_items[index]; }
    size_t itemCount() const { return m_items.size(); }

private:
    STestItem m_screen{"Kiv_Screen_T", "", ""};
    std::vector<std::unique_ptr<STestItem>> m_items;
};

class CTestIterator final : public IModelIterator
{
public:
    explicit CTestIterator(CTestModel &model) : m_model(model) {}
    void next() override { ++m_at; }
    IModelItem *current() override
    {
        if (m_at == 0)
            return &m_model.screen();
        return m_at <= m_model.itemCount() ? &m_model.item(m_at - 1) : nullptr;
    }

private:
    CTestModel &m_model;
    size_t m_at = 0;
};
