// A class with a field of each type, for the targets that restore objects.
#pragma once

#include <string>
#include <tuple>

#include <ostrel/Common.h>

namespace Fuzz
{

class CRecord final : public Ostrel::Common::CDataObject
{
public:
    [[nodiscard]] Ostrel::Common::CFieldMap const* GetFieldMap() const override
    {
        static auto const map =
            Ostrel::Common::CFieldMapBuilder<CRecord>()
                .Field(0, "Text", OSTREL_FIELD(CRecord, GetText, SetText))
                .Field(1, "Number", OSTREL_FIELD(CRecord, GetNumber, SetNumber))
                .Field(2, "Price", OSTREL_FIELD(CRecord, GetPrice, SetPrice))
                .Field(3, "Flag", OSTREL_FIELD(CRecord, GetFlag, SetFlag))
                .Field(4, "Note", OSTREL_FIELD(CRecord, GetNote, SetNote))
                .Field(5, "Peer", OSTREL_FIELD(CRecord, GetPeer, SetPeer))
                .Field(6, "Char", &CRecord::GetOf<char>, &CRecord::SetOf<char>)
                .Field(7, "UChar", &CRecord::GetOf<unsigned char>, &CRecord::SetOf<unsigned char>)
                .Field(8, "Short", &CRecord::GetOf<short>, &CRecord::SetOf<short>)
                .Field(9, "UShort", &CRecord::GetOf<unsigned short>, &CRecord::SetOf<unsigned short>)
                .Field(10, "ULong", &CRecord::GetOf<unsigned long>, &CRecord::SetOf<unsigned long>)
                .Field(11, "Int64", &CRecord::GetOf<__int64>, &CRecord::SetOf<__int64>)
                .Field(12, "Float", &CRecord::GetOf<float>, &CRecord::SetOf<float>)
                .Build();
        return map.get();
    }
    [[nodiscard]] bool IsSerializableType() const override { return true; }
    [[nodiscard]] std::string const& GetSerializationName() const override
    {
        static std::string const name = "Record";
        return name;
    }

    [[nodiscard]] std::string GetText() const { return m_text; }
    void SetText(std::string const& text) { m_text = text; }
    [[nodiscard]] long GetNumber() const { return m_number; }
    void SetNumber(long number) { m_number = number; }
    [[nodiscard]] double GetPrice() const { return m_price; }
    void SetPrice(double price) { m_price = price; }
    [[nodiscard]] bool GetFlag() const { return m_flag; }
    void SetFlag(bool flag) { m_flag = flag; }
    [[nodiscard]] CString GetNote() const { return m_note; }
    void SetNote(CString const& note) { m_note = note; }
    template <class T>
    [[nodiscard]] T GetOf() const
    {
        return std::get<T>(m_others);
    }
    template <class T>
    void SetOf(T value)
    {
        std::get<T>(m_others) = value;
    }
    [[nodiscard]] CDataObject* GetPeer() const { return m_peer; }
    void SetPeer(CDataObject* peer) { m_peer = peer; }

private:
    std::string m_text;
    long m_number = 0;
    double m_price = 0;
    bool m_flag = false;
    CString m_note;
    std::tuple<char, unsigned char, short, unsigned short, unsigned long, __int64, float> m_others{};
    CDataObject* m_peer = nullptr;
};

} // namespace Fuzz
