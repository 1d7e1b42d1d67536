/// @file
/// What copying, cutting and pasting rows means: a replaceable part of a grid.
#pragma once

#include <cstdint>

#include <ostrel/gui/AutoDelete.h>
#include <ostrel/platform/base/Export.h>

namespace Ostrel::GUI
{
class CGrid;
class CPasteTarget;

/// All operations run on the grid's thread. Each returns false when nothing was done.
class OSTREL_GUI_API ICopyPaste : public virtual IAutoDelete
{
public:
    /// What put the rows on the clipboard.
    enum OperationType : std::uint32_t
    {
        CopyOperation = 1,
        CutOperation = 2,
    };

    /// Puts the selected rows on the clipboard.
    virtual bool Copy(CGrid& grid) = 0;
    /// The same, and marks them to be moved by the paste.
    virtual bool Cut(CGrid& grid) = 0;
    /// Puts the rows of the clipboard into a grid.
    virtual bool Paste(CPasteTarget const& target) = 0;
};
} // namespace Ostrel::GUI
