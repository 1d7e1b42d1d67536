// Formats of a column as an application writes them.
#pragma once

#include <ostrel/common/format/Format.h>
#include <ostrel/common/value/Serializer.h>
#include <ostrel/gui/paint/ICellPaintFormat.h>
#include <ostrel/gui/paint/IColumnPaintFormat.h>
#include <ostrel/platform/base/Archive.h>

namespace Ostrel::GUI::Testing
{

/// A format that archives leave out.
class UnnamedTextFormat final : public Common::CFormat
{
public:
    UnnamedTextFormat() : CFormat(Common::TypeLong) {}
    CFormat* Clone() const override { return new UnnamedTextFormat; }
};

/// A format of a name that no factory knows, with five bytes of settings.
class UnknownTextFormat final : public Common::CFormat
{
public:
    UnknownTextFormat() : CFormat(Common::TypeLong) {}
    CFormat* Clone() const override { return new UnknownTextFormat; }
    std::string GetFormatName() override { return "Test::Unknown"; }
    bool IsSerializableType() const override { return true; }
    void Serialize(Common::CSerializer& serializer) override { serializer << 1 << true; }
};

/// Kept in archives under "Test::Cell", with its number.
class NumberedCellFormat final : public ICellPaintFormat
{
public:
    explicit NumberedCellFormat(int number) : m_number(number) {}
    [[nodiscard]] int Number() const { return m_number; }

    void DrawCell(CGridCell&, CPaintContext const&, unsigned int) const override {}
    unsigned long GetBackColor(CGridCell&, CPaintContext const&, unsigned int) const override { return 0; }
    unsigned long GetForeColor(CGridCell&, CPaintContext const&, unsigned int) const override { return 0; }
    int GetOptimalCellWidth(CGridCell&, CPaintContext const&, unsigned int) const override { return 0; }
    CRect GetImageRect(CGridCell&, CPaintContext const&, unsigned int) override { return {}; }
    CRect GetTextRect(CGridCell&, CPaintContext const&, unsigned int) override { return {}; }
    ICellPaintFormat* Clone() const override { return new NumberedCellFormat(m_number); }
    int IsSerializableType() const override { return 1; }
    CString GetFormatName() override { return m_number < 0 ? "Test::Forgotten" : "Test::Cell"; }
    void Serialize(CArchive& archive) override { archive.IsStoring() ? archive << m_number : archive >> m_number; }

private:
    int m_number;
};

/// Kept in archives under "Test::Title", without settings.
class TitleFormat final : public IColumnPaintFormat
{
public:
    void DrawColumn(CColumnPaintInfo&, CPaintContext const&, unsigned int) const override {}
    IColumnPaintFormat* Clone() const override { return new TitleFormat; }
    int IsSerializableType() const override { return 1; }
    CString GetFormatName() override { return "Test::Title"; }
};

} // namespace Ostrel::GUI::Testing
