/// @file
/// A control over a cell.
#pragma once

#include <memory>

#include <ostrel/gui/edit/EmbeddedControlParams.h>
#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/Geometry.h>

class CWnd;

namespace Ostrel::GUI
{

class CGridCell;
class CPaintContext;

namespace Detail
{
class GridControls;
}

/// Keeps a window over a cell, tells who is interested of every message that the window gets, and lets the window look
/// selected, focused and highlighted as the cells around it. CGrid::AttachControl makes it; it ends with the row. The
/// control is a child of the grid, and somebody else's: the adapter never destroys it.
///
/// All on the grid's thread.
class OSTREL_GUI_API CEmbeddedControlAdapter
{
public:
    /// Hears of the messages of controls.
    class ISink
    {
    public:
        virtual ~ISink() = default;
        /// A message that the control is about to get. It may remove sinks, and delete the row. `wParam` carries the
        /// low 32 bits.
        virtual void OnEmbeddedControlMessage(CEmbeddedControlAdapter* /*adapter*/, unsigned int /*message*/,
                                              unsigned int /*wParam*/, long /*lParam*/)
        {}
    };

    /// Begins to watch the control, whose window must exist and be of the calling thread.
    CEmbeddedControlAdapter(CWnd* control, CEmbeddedControlParams const& params);
    CEmbeddedControlAdapter(CEmbeddedControlAdapter const&) = delete;
    CEmbeddedControlAdapter& operator=(CEmbeddedControlAdapter const&) = delete;
    /// Watches no longer. The control stays.
    virtual ~CEmbeddedControlAdapter();

    /// Places the control over a cell with this rectangle, in client coordinates of the grid, as the parameters say.
    virtual void MoveControl(CRect const& cellRect);
    /// The control; null when its window is gone.
    virtual CWnd* GetControl() const;
    /// The cell below the control is painted; remembers how, for painting the control. True.
    virtual bool PaintControl(CGridCell& cell, CPaintContext const& context, unsigned int flags);
    /// Moves the control out of sight, to (-10000, -10000), in its size.
    virtual void MoveAway();
    ///@{
    /// Hides the control, and shows it again.
    virtual void HideControl();
    virtual void ShowControl();
    ///@}
    ///@{
    /// Who hears of the control's messages: each once; null is ignored. Does not take ownership.
    virtual void AddSink(ISink* sink);
    virtual void RemoveSink(ISink* sink);
    ///@}
    /// How the control lies over its cell.
    virtual CEmbeddedControlParams const& GetParams() const;
    /// Whether the grid deletes the adapter when the control leaves its cell: true.
    virtual bool AutoDelete() const;

private:
    friend class Detail::GridControls;
    class Record;

    /// False when the window could not be watched.
    [[nodiscard]] bool IsWatching() const;
    /// The row left its grid: nothing that was remembered of the cell holds any longer.
    void ForgetCell();

    std::shared_ptr<Record> m_record; ///< shared with the message that it is handling
};

} // namespace Ostrel::GUI
