#include <map>
#include <memory>

#include <ostrel/platform/base/HandleTable.h>
#include <ostrel/platform/base/ThreadAnnotations.h>
#include <ostrel/platform/drawing/Brush.h>
#include <ostrel/platform/drawing/Font.h>
#include <ostrel/platform/drawing/GdiObject.h>
#include <ostrel/platform/drawing/Pen.h>
#include <ostrel/platform/drawing/SystemLook.h>
#include <ostrel/platform/drawing/text/FontCatalog.h>

using Ostrel::Platform::HandleTable;
using Ostrel::Platform::Mutex;
using Ostrel::Platform::MutexLock;

namespace
{

using GdiTable = HandleTable<CGdiObject>;

// Never destroyed: objects with static storage give their handles back at any time while the process ends.
GdiTable& Table()
{
    static GdiTable* const table = new GdiTable;
    return *table;
}

DWORD TokenOf(HGDIOBJ handle) noexcept
{
    auto const value = reinterpret_cast<std::uintptr_t>(handle);
    return value <= 0xFFFFFFFFU ? static_cast<DWORD>(value) : 0;
}

HGDIOBJ HandleOf(DWORD token) noexcept
{
    return reinterpret_cast<HGDIOBJ>(static_cast<std::uintptr_t>(token)); // NOLINT(performance-no-int-to-ptr)
}

// Objects that always exist. Their handles are made here, so that later calls from several threads only read.
struct StockObjects
{
    StockObjects()
    {
        whiteBrush.CreateSolidBrush(RGB(255, 255, 255));
        blackBrush.CreateSolidBrush(RGB(0, 0, 0));
        nullBrush.CreateHollowBrush();
        whitePen.CreatePen(PS_SOLID, 1, RGB(255, 255, 255));
        blackPen.CreatePen(PS_SOLID, 1, RGB(0, 0, 0));
        nullPen.CreatePen(PS_NULL, 1, RGB(0, 0, 0));
        for (CGdiObject const* object : {static_cast<CGdiObject*>(&whiteBrush), static_cast<CGdiObject*>(&blackBrush),
                                         static_cast<CGdiObject*>(&nullBrush), static_cast<CGdiObject*>(&whitePen),
                                         static_cast<CGdiObject*>(&blackPen), static_cast<CGdiObject*>(&nullPen)})
        {
            (void)object->GetSafeHandle();
        }
    }

    CBrush whiteBrush;
    CBrush blackBrush;
    CBrush nullBrush;
    CPen whitePen;
    CPen blackPen;
    CPen nullPen;
    Mutex lock;
    /// One font for each scale that was ever set: who holds one keeps it when the scale changes.
    std::map<double, std::unique_ptr<CFont>> fonts OSTREL_GUARDED_BY(lock);
};

CGdiObject& StockFont(StockObjects& objects)
{
    MutexLock const lock(objects.lock);
    std::unique_ptr<CFont>& font = objects.fonts[Ostrel::Platform::GetScale()];
    if (font == nullptr)
    {
        font = std::make_unique<CFont>();
        LOGFONT const description = Ostrel::Platform::DefaultFontDescription();
        font->CreateFontIndirect(&description);
        (void)font->GetSafeHandle();
    }
    return *font;
}

} // namespace

CGdiObject::~CGdiObject()
{
    DeleteObject();
}

BOOL CGdiObject::DeleteObject()
{
    if (!m_created)
    {
        return FALSE;
    }
    OnDelete();
    m_created = false;
    if (m_hObject != nullptr)
    {
        Table().Remove(TokenOf(m_hObject));
        m_hObject = nullptr;
    }
    return TRUE;
}

HGDIOBJ CGdiObject::GetSafeHandle() const
{
    if (m_created && m_hObject == nullptr)
    {
        m_hObject = HandleOf(Table().Add(const_cast<CGdiObject*>(this)));
    }
    return m_hObject;
}

CGdiObject* CGdiObject::FromHandle(HGDIOBJ handle) noexcept
{
    return Table().Find(TokenOf(handle));
}

HGDIOBJ GetStockObject(int number)
{
    static StockObjects* const objects = new StockObjects;
    switch (number)
    {
    case WHITE_BRUSH:
        return objects->whiteBrush.GetSafeHandle();
    case BLACK_BRUSH:
        return objects->blackBrush.GetSafeHandle();
    case NULL_BRUSH:
        return objects->nullBrush.GetSafeHandle();
    case WHITE_PEN:
        return objects->whitePen.GetSafeHandle();
    case BLACK_PEN:
        return objects->blackPen.GetSafeHandle();
    case NULL_PEN:
        return objects->nullPen.GetSafeHandle();
    case SYSTEM_FONT:
    case DEFAULT_GUI_FONT:
        return StockFont(*objects).GetSafeHandle();
    default:
        return nullptr;
    }
}
