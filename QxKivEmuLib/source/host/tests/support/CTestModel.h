#pragma once

#include "IModelItem.h"
#include "IModelIterator.h"
#include "IModelProperty.h"

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

    STestItem &set(const std::string &key, int32_t value);
    STestItem &set(const std::string &key, const std::string &value);

    std::string type;
    std::string id;
    std::string commands;
    std::vector<STestProperty> properties;
};

class CTestModel
{
public:
    CTestModel();

    STestItem &screen() { return m_screen; }
    /// A box of 20 x 10 at (x, y) with render commands; ids count from 1.
    STestItem &add(const std::string &commands, const std::string &type = "Kiv_Test_T");
    STestItem &item(size_t index) { return *m_items[index]; }
    size_t itemCount() const { return m_items.size(); }

private:
    STestItem m_screen;
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
