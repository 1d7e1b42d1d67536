#include <map>
#include <string>

#include <ostrel/gui/paint/CellPaintFormat.h>
#include <ostrel/gui/paint/ColumnPaintFormat.h>
#include <ostrel/gui/paint/HeaderPaintFormat.h>
#include <ostrel/gui/paint/LinePaintFormat.h>
#include <ostrel/gui/paint/PaintFormatFactory.h>
#include <ostrel/platform/base/ThreadAnnotations.h>

namespace Ostrel::GUI
{
namespace
{

template <class Format>
class Register
{
public:
    using Creator = Format* (*)();

    Register(CString const& builtInName, Creator builtInCreator) { Add(builtInName, builtInCreator); }

    bool Add(CString const& name, Creator creator)
    {
        Platform::MutexLock const lock(m_lock);
        return m_creators.emplace(name.AsStd(), creator).second;
    }

    /// Calls the creator, which is the application's, outside the lock.
    [[nodiscard]] Format* Create(CString const& name) const
    {
        Creator const creator = Find(name);
        return creator != nullptr ? creator() : nullptr;
    }

private:
    [[nodiscard]] Creator Find(CString const& name) const
    {
        Platform::MutexLock const lock(m_lock);
        auto const found = m_creators.find(name.AsStd());
        return found != m_creators.end() ? found->second : nullptr;
    }

    mutable Platform::Mutex m_lock;
    std::map<std::string, Creator> m_creators OSTREL_GUARDED_BY(m_lock);
};

// The built-in formats are named here rather than by objects of their own source files: a static library leaves out
// files that nobody refers to. The registers outlive every static object that makes formats while the process ends.

Register<ICellPaintFormat>& CellFormats()
{
    static auto* const formats = new Register<ICellPaintFormat>(
        CCellPaintFormat::GetFormatClassName(), []() -> ICellPaintFormat* { return new CCellPaintFormat; });
    return *formats;
}

Register<ILinePaintFormat>& LineFormats()
{
    static auto* const formats =
        new Register<ILinePaintFormat>(CLinePaintFormat::GetFormatClassName(), &CLinePaintFormat::CreateFormat);
    return *formats;
}

Register<IColumnPaintFormat>& ColumnFormats()
{
    static auto* const formats =
        new Register<IColumnPaintFormat>(CColumnPaintFormat::GetFormatClassName(), &CColumnPaintFormat::CreateFormat);
    return *formats;
}

Register<IHeaderPaintFormat>& HeaderFormats()
{
    static auto* const formats =
        new Register<IHeaderPaintFormat>(CHeaderPaintFormat::GetFormatClassName(), &CHeaderPaintFormat::CreateFormat);
    return *formats;
}

} // namespace

bool CPaintFormatFactory::RegisterCellFormat(CString const& name, CellFormatCreator creator)
{
    return CellFormats().Add(name, creator);
}

bool CPaintFormatFactory::RegisterLineFormat(CString const& name, LineFormatCreator creator)
{
    return LineFormats().Add(name, creator);
}

bool CPaintFormatFactory::RegisterColumnFormat(CString const& name, ColumnFormatCreator creator)
{
    return ColumnFormats().Add(name, creator);
}

bool CPaintFormatFactory::RegisterHeaderFormat(CString const& name, HeaderFormatCreator creator)
{
    return HeaderFormats().Add(name, creator);
}

ICellPaintFormat* CPaintFormatFactory::CreateCellPaintFormat(CString const& name)
{
    return CellFormats().Create(name);
}

ILinePaintFormat* CPaintFormatFactory::CreateLinePaintFormat(CString const& name)
{
    return LineFormats().Create(name);
}

IColumnPaintFormat* CPaintFormatFactory::CreateColumnPaintFormat(CString const& name)
{
    return ColumnFormats().Create(name);
}

IHeaderPaintFormat* CPaintFormatFactory::CreateHeaderPaintFormat(CString const& name)
{
    return HeaderFormats().Create(name);
}

} // namespace Ostrel::GUI
