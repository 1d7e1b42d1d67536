// A column in an archive.
#include <limits>
#include <vector>

#include <ostrel/common/format/FormatFactory.h>
#include <ostrel/common/value/Serializer.h>
#include <ostrel/gui/detail/ArchiveVersion.h>
#include <ostrel/gui/header/Column.h>
#include <ostrel/gui/header/detail/ColumnImpl.h>
#include <ostrel/gui/paint/PaintFormatFactory.h>
#include <ostrel/platform/base/Archive.h>

namespace Ostrel::GUI
{

using Common::CFormat;
using Common::CSerializer;

namespace
{

/// Reads a block of stored length, a piece at a time: the length may be damaged, the room for it is not promised.
std::vector<BYTE> ReadBytes(CArchive& archive, int count)
{
    constexpr std::size_t kPieceBytes = 64 * 1024;
    if (count < 0)
    {
        AfxThrowArchiveException(CArchiveException::badSchema);
    }
    std::vector<BYTE> bytes;
    for (auto left = static_cast<std::size_t>(count); left > 0;)
    {
        std::size_t const piece = std::min(left, kPieceBytes);
        std::size_t const begin = bytes.size();
        bytes.resize(begin + piece);
        archive.EnsureRead(bytes.data() + begin, static_cast<UINT>(piece));
        left -= piece;
    }
    return bytes;
}

void StoreTextFormat(CArchive& archive, CFormat const* format)
{
    bool const isStored = format != nullptr && format->IsSerializableType();
    archive << isStored;
    if (!isStored)
    {
        return;
    }
    CSerializer serializer(CSerializer::ModeStore);
    serializer << *format;
    std::vector<BYTE> bytes(static_cast<std::size_t>(serializer.GetSavingSize()));
    serializer.SaveToBuffer(bytes.data());
    // A format gives its name through an operation that may not be called on a constant one.
    archive << const_cast<CFormat*>(format)->GetFormatName() << static_cast<int>(bytes.size());
    archive.Write(bytes.data(), static_cast<UINT>(bytes.size()));
}

/// Null for none and for one of unknown name. What a format says of a damaged or newer block becomes badSchema: whoever
/// loads an archive expects the archive's exceptions.
std::unique_ptr<CFormat const> LoadTextFormat(CArchive& archive)
{
    bool isStored = false;
    archive >> isStored;
    if (!isStored)
    {
        return nullptr;
    }
    std::string name;
    int count = 0;
    archive >> name;
    std::unique_ptr<CFormat> format(Common::CFormatFactory::Create(name));
    archive >> count;
    std::vector<BYTE> const bytes = ReadBytes(archive, count);
    if (format != nullptr)
    {
        try
        {
            CSerializer serializer(CSerializer::ModeRestore);
            serializer.LoadFromBuffer(bytes.data(), count);
            serializer >> *format;
        }
        catch (Common::CommonException const&)
        {
            AfxThrowArchiveException(CArchiveException::badSchema);
        }
    }
    return format;
}

template <class PaintFormat>
void StorePaintFormat(CArchive& archive, PaintFormat const* format)
{
    bool const isStored = format != nullptr && format->IsSerializableType() != 0;
    archive << (isStored ? 1 : 0);
    if (isStored)
    {
        // Storing does not change the format; the operation serves both directions.
        auto* const storable = const_cast<PaintFormat*>(format);
        archive << storable->GetFormatName();
        storable->Serialize(archive);
    }
}

template <class PaintFormat>
std::unique_ptr<PaintFormat const> LoadPaintFormat(CArchive& archive, PaintFormat* (*create)(CString const&))
{
    int isStored = 0;
    archive >> isStored;
    if (isStored == 0)
    {
        return nullptr;
    }
    CString name;
    archive >> name;
    std::unique_ptr<PaintFormat> format(create(name));
    if (format == nullptr)
    {
        AfxThrowArchiveException(CArchiveException::badSchema);
    }
    format->Serialize(archive);
    return format;
}

template <class T>
void LoadInto(CArchive& archive, std::atomic<T>& property)
{
    T value = property;
    archive >> value;
    property = value;
}

void LoadInto(CArchive& archive, std::atomic<CColumn::Alignment>& property)
{
    int value = 0;
    archive >> value;
    property = static_cast<CColumn::Alignment>(value);
}

} // namespace

void CColumn::Impl::Store(CArchive& archive) const
{
    Common::CLock const lock(propertyLock);
    archive << GetSerializeVertion() << fid.load() << Name() << width.load() << static_cast<int>(alignment.load())
            << cellImageId.load() << columnImageId.load() << visible.load() << editable.load() << m_description;
    StoreTextFormat(archive, textFormat.Get());
    StorePaintFormat(archive, cellPaintFormat.Get());
    StorePaintFormat(archive, columnPaintFormat.Get());
}

void CColumn::Impl::Load(CArchive& archive)
{
    if (!ReadBlockVersion(archive, GetSerializeVertion()))
    {
        return;
    }
    std::string text;
    LoadInto(archive, fid);
    archive >> text;
    ChangeName(text);
    LoadInto(archive, width);
    LoadInto(archive, alignment);
    LoadInto(archive, cellImageId);
    LoadInto(archive, columnImageId);
    LoadInto(archive, visible);
    LoadInto(archive, editable);
    archive >> text;
    ChangeDescription(text);
    Install(textFormat, {});
    Install(textFormat, LoadTextFormat(archive));
    Install(cellPaintFormat, {});
    Install(cellPaintFormat, LoadPaintFormat(archive, &CPaintFormatFactory::CreateCellPaintFormat));
    Install(columnPaintFormat, {});
    Install(columnPaintFormat, LoadPaintFormat(archive, &CPaintFormatFactory::CreateColumnPaintFormat));
}

void CColumn::Serialize(CArchive& archive)
{
    if (archive.IsStoring())
    {
        m_impl->Store(archive);
    }
    else
    {
        m_impl->Load(archive);
    }
}

} // namespace Ostrel::GUI
