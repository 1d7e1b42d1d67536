#include "Metals.h"

#include <algorithm>

namespace Gallery
{

using namespace Ostrel::Common;

namespace
{

struct Sample
{
    char const* name;
    char const* symbol;
    double price;
    double change;
    long stock;
};

constexpr Sample kSamples[] = {
    {"Gold", "Au", 2384.5, 0.42, 72},      {"Silver", "Ag", 29.18, -1.15, 35}, {"Platinum", "Pt", 968.25, 0.08, 90},
    {"Palladium", "Pd", 1021.4, -2.6, 12}, {"Copper", "Cu", 9.74, 1.9, 58},    {"Nickel", "Ni", 16.92, -0.31, 100},
    {"Zinc", "Zn", 2.81, 0.77, 41},        {"Tin", "Sn", 32.65, 3.05, 23},     {"Lead", "Pb", 2.19, -0.54, 66},
    {"Cobalt", "Co", 27.15, 0.12, 5},      {"Titanium", "Ti", 11.3, 1.2, 84},  {"Lithium", "Li", 13.48, -3.9, 49},
};

} // namespace

void CMetal::SetStock(long stock)
{
    m_stock = stock;
    NotifyUpdate(kStock);
}

CFieldMap const& CMetal::Fields()
{
    static auto const fields = CFieldMapBuilder<CMetal>()
                                   .Field(kName, "Metal", &CMetal::GetName)
                                   .Field(kSymbol, "Symbol", &CMetal::GetSymbol)
                                   .Field(kPrice, "Price", &CMetal::GetPrice, nullptr, new CDoubleFormat(2, true))
                                   .Field(kChange, "Change %", &CMetal::GetChange, nullptr, new CDoubleFormat(2, true))
                                   .Field(kStock, "Stock", &CMetal::GetStock, &CMetal::SetStock)
                                   .Build();
    return *fields;
}

Metals MakeMetals(int count)
{
    Metals metals;
    for (Sample const& sample : kSamples)
    {
        if (static_cast<int>(metals.size()) < count)
        {
            metals.push_back(
                std::make_unique<CMetal>(sample.name, sample.symbol, sample.price, sample.change, sample.stock));
        }
    }
    return metals;
}

} // namespace Gallery
