/// @file
/// Makes paint formats by the names under which archives keep them.
#pragma once

#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/base/String.h>

namespace Ostrel::GUI
{

class ICellPaintFormat;
class IColumnPaintFormat;
class IHeaderPaintFormat;
class ILinePaintFormat;

/// One register a kind; names are compared byte by byte. The default formats are registered from the start. Any thread.
class OSTREL_GUI_API CPaintFormatFactory
{
public:
    using CellFormatCreator = ICellPaintFormat* (*)();     ///< makes a new format, which its caller owns
    using LineFormatCreator = ILinePaintFormat* (*)();     ///< makes a new format, which its caller owns
    using ColumnFormatCreator = IColumnPaintFormat* (*)(); ///< makes a new format, which its caller owns
    using HeaderFormatCreator = IHeaderPaintFormat* (*)(); ///< makes a new format, which its caller owns

    CPaintFormatFactory() = delete;

    ///@{
    /// Registers a class under its name. False, and nothing changes, for a name that is registered. A null creator
    /// occupies the name.
    static bool RegisterCellFormat(CString const& name, CellFormatCreator creator);
    static bool RegisterLineFormat(CString const& name, LineFormatCreator creator);
    static bool RegisterColumnFormat(CString const& name, ColumnFormatCreator creator);
    static bool RegisterHeaderFormat(CString const& name, HeaderFormatCreator creator);
    ///@}

    ///@{
    /// A new format, which the caller owns, or null for a name that is unknown or has no creator.
    [[nodiscard]] static ICellPaintFormat* CreateCellPaintFormat(CString const& name);
    [[nodiscard]] static ILinePaintFormat* CreateLinePaintFormat(CString const& name);
    [[nodiscard]] static IColumnPaintFormat* CreateColumnPaintFormat(CString const& name);
    [[nodiscard]] static IHeaderPaintFormat* CreateHeaderPaintFormat(CString const& name);
    ///@}
};

} // namespace Ostrel::GUI
