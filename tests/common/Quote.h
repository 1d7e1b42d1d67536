// The data objects of these tests: a class with a field of each kind, and one derived from it.
#pragma once

#include <string>
#include <vector>

#include <ostrel/Common.h>

namespace Ostrel::Common::testing
{

class CQuote : public CDataObject
{
public:
    enum Fields : long
    {
        kBid = 2,
        kSize = 3,
        kName = 5,
        kNote = 7,
        kPeer = 11,
        kWriteOnly = 13,
        kLocked = 17,
        kFlag = 19
    };

    static CFieldMap const* Map()
    {
        static auto const map = CFieldMapBuilder<CQuote>()
                                    .Field(kBid, "Bid", OSTREL_FIELD(CQuote, GetBid, SetBid), new CDoubleFormat(2))
                                    .Field(kSize, "Size", OSTREL_FIELD(CQuote, GetSize, SetSize))
                                    .Field(kName, "Name", &CQuote::GetName, &CQuote::SetName)
                                    .Field(kNote, "Note", &CQuote::GetNote, &CQuote::SetNote)
                                    .Field(kPeer, "Peer", &CQuote::GetPeer, &CQuote::SetPeer)
                                    .Field(kWriteOnly, "Write only", nullptr, &CQuote::SetSize)
                                    .Field(kLocked, "Locked", OSTREL_READONLY_FIELD(CQuote, GetLocked))
                                    .Field(kFlag, "Flag", &CQuote::GetFlag, &CQuote::SetFlag)
                                    .Build();
        return map.get();
    }
    [[nodiscard]] CFieldMap const* GetFieldMap() const override { return Map(); }

    [[nodiscard]] double GetBid() const { return m_bid; }
    void SetBid(double bid) { m_bid = bid; }
    [[nodiscard]] short GetSize() const noexcept { return m_size; }
    void SetSize(short size) noexcept
    {
        m_size = size;
        ++m_sizeSets;
    }
    [[nodiscard]] std::string GetName() const { return m_name; }
    void SetName(std::string const& name) { m_name = name; }
    [[nodiscard]] CString GetNote() const { return m_note; }
    void SetNote(CString const& note) { m_note = note; }
    [[nodiscard]] CDataObject* GetPeer() const { return m_peer; }
    void SetPeer(CDataObject* peer) { m_peer = peer; }
    [[nodiscard]] long GetLocked() const { return 1234; }
    [[nodiscard]] bool GetFlag() const { return m_flag; }
    void SetFlag(bool flag) { m_flag = flag; }

    int m_sizeSets = 0;

private:
    double m_bid = 0;
    short m_size = 0;
    std::string m_name;
    CString m_note;
    CDataObject* m_peer = nullptr;
    bool m_flag = false;
};

/// Declares one field of the base's again and one of its own.
class CTradedQuote final : public CQuote
{
public:
    enum Fields : long
    {
        kVolume = 4
    };

    static CFieldMap const* Map()
    {
        static auto const map = CFieldMapBuilder<CTradedQuote>(CQuote::Map())
                                    .Field(kVolume, "Volume", &CTradedQuote::GetVolume, &CTradedQuote::SetVolume)
                                    .Field(kBid, "Best bid", &CTradedQuote::GetBid) // an accessor of the base class
                                    .Build();
        return map.get();
    }
    [[nodiscard]] CFieldMap const* GetFieldMap() const override { return Map(); }

    [[nodiscard]] __int64 GetVolume() const { return m_volume; }
    void SetVolume(__int64 volume) { m_volume = volume; }

private:
    __int64 m_volume = 0;
};

/// Writes down what it is told.
class CRecordingSink : public CDataObject::ISink
{
public:
    explicit CRecordingSink(std::string name, std::string& record) : m_name(std::move(name)), m_record(record) {}

    using ISink::OnUpdate;
    void OnUpdate(long fid, CDataObject const* /*object*/) override { Note(std::to_string(fid)); }
    void OnDelete(CDataObject const* /*object*/) override { Note("deleted"); }

protected:
    void Note(std::string const& what) { m_record += (m_record.empty() ? "" : " ") + m_name + ":" + what; }

private:
    std::string m_name;
    std::string& m_record;
};

} // namespace Ostrel::Common::testing
