// The data of the gallery: metals with a price that moves. An ordinary application class; nothing of it knows a grid.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include <ostrel/Common.h>

namespace Gallery
{

class CMetal : public Ostrel::Common::CDataObject
{
public:
    enum Fid : long
    {
        kName,
        kSymbol,
        kPrice,
        kChange,
        kStock
    };

    CMetal(std::string name, std::string symbol, double price, double change, long stock)
        : m_name(std::move(name)), m_symbol(std::move(symbol)), m_price(price), m_change(change), m_stock(stock)
    {}

    [[nodiscard]] std::string GetName() const { return m_name; }
    [[nodiscard]] std::string GetSymbol() const { return m_symbol; }
    [[nodiscard]] double GetPrice() const { return m_price; }
    /// In percent.
    [[nodiscard]] double GetChange() const { return m_change; }
    /// Full is 100.
    [[nodiscard]] long GetStock() const { return m_stock; }
    void SetStock(long stock);

    static Ostrel::Common::CFieldMap const& Fields();
    Ostrel::Common::CFieldMap const* GetFieldMap() const override { return &Fields(); }

private:
    std::string m_name;
    std::string m_symbol;
    double m_price;
    double m_change;
    long m_stock;
};

using Metals = std::vector<std::unique_ptr<CMetal>>;

/// At most twelve.
[[nodiscard]] Metals MakeMetals(int count);

} // namespace Gallery
