// Restores object records into a class with fields of many types and into an object that declares none.
#include <ostrel/Common.h>

#include "Target.h"

using namespace Ostrel::Common;

namespace
{

class CRecord final : public CDataObject
{
public:
    [[nodiscard]] CFieldMap const* GetFieldMap() const override
    {
        static auto const map = CFieldMapBuilder<CRecord>()
                                    .Field(0, "Text", OSTREL_FIELD(CRecord, GetText, SetText))
                                    .Field(1, "Number", OSTREL_FIELD(CRecord, GetNumber, SetNumber))
                                    .Field(2, "Price", OSTREL_FIELD(CRecord, GetPrice, SetPrice))
                                    .Field(3, "Flag", OSTREL_FIELD(CRecord, GetFlag, SetFlag))
                                    .Field(4, "Note", OSTREL_FIELD(CRecord, GetNote, SetNote))
                                    .Field(5, "Peer", OSTREL_FIELD(CRecord, GetPeer, SetPeer))
                                    .Build();
        return map.get();
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
    [[nodiscard]] CDataObject* GetPeer() const { return m_peer; }
    void SetPeer(CDataObject* peer) { m_peer = peer; }

private:
    std::string m_text;
    long m_number = 0;
    double m_price = 0;
    bool m_flag = false;
    CString m_note;
    CDataObject* m_peer = nullptr;
};

/// Returns false for bytes that are no record.
bool RestoreForeign(std::span<std::uint8_t const> bytes, CDataObject& object)
{
    try
    {
        CSerializer serializer = Fuzz::Restoring(bytes);
        serializer >> object;
        return true;
    }
    catch (CSerializer::SerializationException const&)
    {
        return false;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    CRecord record;
    RestoreForeign({data, size}, record);
    Fuzz::Require(record.GetPeer() == nullptr, "bytes never become pointers");
    std::string const bytes = Fuzz::Stored(record);
    CRecord again;
    Fuzz::Restore(bytes, again);
    Fuzz::Require(Fuzz::Stored(again) == bytes, "an object stores the same bytes after a round trip");

    CDynamicObject dynamic(false);
    RestoreForeign({data, size}, dynamic);
    std::set<long> fids;
    dynamic.GetAllFids(fids);
    Fuzz::Require(fids.size() <= size, "there are no more fields than bytes");
    for (long const fid : fids)
    {
        static_cast<void>(dynamic.GetFormattedStlString(fid, nullptr));
    }
    return 0;
}
