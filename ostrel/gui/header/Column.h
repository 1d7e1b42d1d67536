/// @file
/// One column of a grid.
#pragma once

#include <memory>
#include <string>

#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/Object.h>

namespace Ostrel::Common
{
class CFormat;
}

namespace Ostrel::GUI
{

class ICellPaintFormat;
class IColumnPaintFormat;

/// One column of a grid: the field it shows, its title, width and alignment, and the formats that turn values into text
/// and draw them.
///
///     header->Add(new CColumn(kPriceFid, "Price", 80, CColumn::AlignRight)); // the header owns it now
///
/// Threads: every operation may be called on any thread; each reads or changes one property as a whole. The getters of
/// plain properties take no lock at all, so that painting may ask them for every cell. Subscribers are called on the
/// thread that made the change, with no lock of the column held: they may call the column back.
class OSTREL_GUI_API CColumn : public CObject
{
    DECLARE_SERIAL(CColumn)

public:
    /// Where the text stands in its cell; titles take AlignAuto as left.
    enum Alignment : int
    {
        AlignAuto = 0,  ///< numbers right, everything else left
        AlignLeft = 1,  ///< at the left edge
        AlignRight = 2, ///< at the right edge
        AlignCenter = 3 ///< in the middle
    };

    /// What has changed.
    enum NotificationType : int
    {
        NameChanged = 0,              ///< the title
        WidthChanged = 1,             ///< the width
        AlignmentChanged = 2,         ///< the alignment of the cells
        DescriptionChanged = 3,       ///< the description
        CellPaintFormatChanged = 4,   ///< what draws the cells
        ColumnPaintFormatChanged = 5, ///< what draws the title
        TextFormatChanged = 6,        ///< what turns values into text
        CellImageChanged = 7,         ///< the image in the cells
        ColumnImageChanged = 8,       ///< the image in the title
        VisibilityChanged = 9,        ///< shown or hidden
        EditabilityChanged = 10       ///< whether the cells may be edited
    };

    /// Hears of changes of columns.
    class OSTREL_GUI_API INotify
    {
    public:
        INotify() = default;
        ///@{
        /// Subscribers have no state that the column knows.
        INotify(INotify const&) = default;
        INotify& operator=(INotify const&) = default;
        ///@}
        virtual ~INotify() = default;

        /// On the thread of the change, after it. May call the column, and subscribe and unsubscribe.
        virtual void OnColumnChanged(CColumn* column, NotificationType type) = 0;
    };

    /// A column that shows the field `fid` under the title `name`, `width` pixels wide. Takes ownership of the three
    /// formats; each may be null: the text format then is the field's own, the paint formats are the defaults. Image
    /// indices are -1 for none. The column is visible.
    CColumn(long fid, std::string const& name, int width, Alignment alignment = AlignLeft, bool editable = false,
            int cellImageId = -1, int columnImageId = -1, Common::CFormat const* textFormat = nullptr,
            ICellPaintFormat const* cellPaintFormat = nullptr, IColumnPaintFormat const* columnPaintFormat = nullptr,
            std::string const& description = {});
    ///@{
    /// Copies everything but the subscribers; the formats are cloned. Assigning deletes the formats that the column had
    /// and notifies nobody, so assign to a column before a header has it.
    CColumn(CColumn const& other);
    CColumn& operator=(CColumn const& other);
    ///@}
    ~CColumn() override;

    /// The field that the column shows, fixed at construction.
    [[nodiscard]] long GetFid() const noexcept;

    /// The title. The reference is good until the name has been changed twice.
    [[nodiscard]] std::string const& GetName() const;
    /// Changes the title and tells the subscribers.
    void SetName(std::string const& name);

    ///@{
    /// A text about the column for the user; setting tells the subscribers.
    [[nodiscard]] std::string GetDescription() const;
    void SetDescription(std::string const& description);
    ///@}

    /// The width in pixels.
    [[nodiscard]] int GetWidth() const noexcept;
    /// Changes the width and tells the subscribers. False, and nothing changes, for a width below 1.
    bool SetWidth(int width);

    ///@{
    /// Where the texts of the cells stand; setting tells the subscribers.
    [[nodiscard]] Alignment GetAlignment() const noexcept;
    void SetAlignment(Alignment alignment);
    ///@}

    /// What turns the values into text; null for the field's own format. The column keeps ownership.
    [[nodiscard]] Common::CFormat const* GetTextFormat() const noexcept;
    /// Takes ownership. Returns the previous format, which the caller then owns. Setting the format that is set changes
    /// nothing; the pointer comes back and still belongs to the column.
    Common::CFormat const* SetTextFormat(Common::CFormat const* format);

    ///@{
    /// What draws the cells; null for the default paint format. Ownership as with the text format.
    [[nodiscard]] ICellPaintFormat const* GetCellPaintFormat() const noexcept;
    ICellPaintFormat const* SetCellPaintFormat(ICellPaintFormat const* format);
    ///@}

    ///@{
    /// What draws the title; null for the default paint format. Ownership as with the text format.
    [[nodiscard]] IColumnPaintFormat const* GetColumnPaintFormat() const noexcept;
    IColumnPaintFormat const* SetColumnPaintFormat(IColumnPaintFormat const* format);
    ///@}

    ///@{
    /// Number of the image shown in the cells, of the grid's image list; -1 for none.
    [[nodiscard]] int GetCellImageId() const noexcept;
    void SetCellImageId(int imageId);
    ///@}

    ///@{
    /// Number of the image shown in the title, of the header's image list; -1 for none.
    [[nodiscard]] int GetColumnImageId() const noexcept;
    void SetColumnImageId(int imageId);
    ///@}

    ///@{
    /// Whether the column is shown.
    [[nodiscard]] bool IsVisible() const noexcept;
    void SetVisible(bool visible);
    ///@}

    ///@{
    /// Whether the cells may be edited in place.
    [[nodiscard]] bool IsEditable() const noexcept;
    void SetEditable(bool editable);
    ///@}

    /// Adds a subscriber to the changes. Does not take ownership; null and a subscriber that is there already are
    /// ignored. Called in the order of subscription.
    void Subscribe(INotify* subscriber);
    /// Removes a subscriber; does nothing for one that is not there.
    void Unsubscribe(INotify* subscriber);

    /// Stores or loads the column, without its subscribers. Loading throws CArchiveException: badSchema for a newer
    /// version, a paint format of unknown name or a damaged text format, endOfFile for an archive that ends too early;
    /// the column then holds what was read so far. A text format of unknown name is skipped. Loading notifies nobody.
    void Serialize(CArchive& archive) override;
    /// The version that is written.
    [[nodiscard]] static int GetSerializeVertion() noexcept { return 1; }

protected:
    /// For the creation by name: no field, no name, width 0, aligned left, visible, not editable.
    CColumn();

    /// Tells the subscribers, on a copy of their list.
    void Notify(NotificationType type);

private:
    class Impl;
    std::unique_ptr<Impl> const m_impl;
};

} // namespace Ostrel::GUI
