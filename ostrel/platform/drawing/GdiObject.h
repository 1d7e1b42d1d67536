/// @file
/// What pens, brushes, fonts, bitmaps and regions have in common: an object of the caller's with a handle while it
/// holds something. A handle is a token with a generation: one of an object that is gone finds nothing.
///
/// A device context copies or shares what is selected into it, so an object may be changed or destroyed at any time.
/// One thread at a time for one object; different objects on different threads are independent.
#pragma once

#include <ostrel/platform/base/Export.h>
#include <ostrel/platform/drawing/DrawingTypes.h>

/// The base of pens, brushes, fonts, bitmaps and regions.
class OSTREL_PLATFORM_API CGdiObject
{
public:
    CGdiObject(CGdiObject const&) = delete;
    CGdiObject& operator=(CGdiObject const&) = delete;
    virtual ~CGdiObject();

    /// The handle, made on first use; null while the object holds nothing.
    [[nodiscard]] HGDIOBJ GetSafeHandle() const;
    /// Gives up what the object holds. FALSE when it held nothing.
    BOOL DeleteObject();

    /// The object of a handle; null for a null, foreign or stale one. Any thread.
    [[nodiscard]] static CGdiObject* FromHandle(HGDIOBJ handle) noexcept;

protected:
    CGdiObject() noexcept = default;
    /// The object holds something from now on; its handle, if it had one, stays.
    void MarkCreated() noexcept { m_created = true; }
    /// Releases what the derived class holds.
    virtual void OnDelete() noexcept {}

private:
    bool m_created = false;
    mutable HGDIOBJ m_hObject = nullptr;
};

///@{
/// A font, brush or pen of the system, which always exists and is never deleted; for GetStockObject.
inline constexpr int WHITE_BRUSH = 0;
inline constexpr int BLACK_BRUSH = 4;
inline constexpr int NULL_BRUSH = 5;
inline constexpr int HOLLOW_BRUSH = NULL_BRUSH;
inline constexpr int WHITE_PEN = 6;
inline constexpr int BLACK_PEN = 7;
inline constexpr int NULL_PEN = 8;
inline constexpr int SYSTEM_FONT = 13;
inline constexpr int DEFAULT_GUI_FONT = 17;
///@}

/// The handle of such an object, null for an unknown number. Any thread.
OSTREL_PLATFORM_API HGDIOBJ GetStockObject(int number);
