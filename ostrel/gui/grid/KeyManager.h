/// @file
/// The usual keys: arrows, pages, Home and End, expanding and collapsing, select all.
#pragma once

#include <ostrel/gui/grid/IKeyManager.h>

namespace Ostrel::GUI
{
/// The default key manager. It keeps no state, so one serves any number of grids.
class OSTREL_GUI_API CKeyManager : public IKeyManager
{
public:
    /// autoDelete: whether a grid that holds this manager deletes it.
    explicit CKeyManager(bool autoDelete);
    CKeyManager(CKeyManager const&) = delete;
    CKeyManager& operator=(CKeyManager const&) = delete;
    ~CKeyManager() override;

    // IAutoDelete
    /// What was given at construction.
    bool AutoDelete() const override { return m_autoDelete; }

    // IKeyManager
    int OnKeyDown(CGrid& grid, unsigned int key, unsigned int repeat, unsigned int flags) override;
    int OnKeyUp(CGrid& grid, unsigned int key, unsigned int repeat, unsigned int flags) override;
    void NavigateKeyUp(CGrid& grid, bool shift, bool ctrl) override;
    void NavigateKeyDown(CGrid& grid, bool shift, bool ctrl) override;
    void NavigateKeyPageUp(CGrid& grid, bool shift, bool ctrl) override;
    void NavigateKeyPageDown(CGrid& grid, bool shift, bool ctrl) override;
    void NavigateKeyHome(CGrid& grid, bool shift, bool ctrl) override;
    void NavigateKeyEnd(CGrid& grid, bool shift, bool ctrl) override;
    void NavigateKeyLeft(CGrid& grid, bool shift, bool ctrl) override;
    void NavigateKeyRight(CGrid& grid, bool shift, bool ctrl) override;
    void OnEscape(CGrid& grid) override;
    void OnReturn(CGrid& grid) override;
    void OnSelectAll(CGrid& grid) override;
    void OnCopySelection(CGrid& grid) override;
    void OnCutSelection(CGrid& grid) override;
    void OnPasteSelection(CGrid& grid) override;

private:
    int OnShortcut(CGrid& grid, unsigned int key);

    bool m_autoDelete;
};
} // namespace Ostrel::GUI
