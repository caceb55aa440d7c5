#pragma once

#include "CommonUILibExport.h"
#include "TActivationConfig.h"
#include "TMMIDef.h"

#include <QSharedData>
#include <QSharedDataPointer>
#include <QString>

#include <vector>

/// The state of one element of a menu: what it shows, what it does, where it leads. Each value stands beside
/// the one last reported, so that a change is noticed once; see TMenuState, which holds the elements.
///
/// A value: take it out of its menu with TMenuState::GetElement(), change it, and hand it back with
/// TMenuState::SetElement(). Copies share what seldom changes, so that a snapshot of many elements is cheap;
/// two threads may each work on a copy of their own.
class COMMONUILIB_EXPORT TElementState
{
public:
    static constexpr int NoID = -1;

    /// An element that belongs to no menu, invisible and without function: what stands for an unknown one.
    TElementState();
    /// \a controlID means something to the display alone.
    TElementState(TMMIDef const& mmiDef, TActivationConfig const& config, QString const& name,
                  QString const& iconName, int controlID, bool enabled, bool visible, bool shortcut);

    /// The id in its menu, given by that menu; NoID before.
    int GetID() const { return m_ID; }
    QString GetName() const { return m_Shared->name.current; }
    QString GetIconName() const { return m_Shared->iconName.current; }
    bool IsEnabled() const { return m_Enabled.current; }
    /// Whether both its module and the display let it be seen.
    bool IsVisible() const { return m_Visible.current && m_ControlVisible.current; }
    /// Whether it may stand in the shortcut area.
    bool IsShortcut() const { return m_Shortcut.current; }
    int GetControlID() const { return m_ControlID.current; }
    /// With what was last reported of it.
    TActivationConfig const& GetActivationConfig() const { return m_Shared->config; }
    TMMIDef const& GetMMIDef() const { return m_Shared->mmiDef; }

    void SetID(int id) { m_ID = id; }
    void SetName(QString const& name);
    void SetIconName(QString const& iconName);
    void SetEnabled(bool enabled) { m_Enabled.current = enabled; }
    /// The module's wish.
    void SetVisible(bool visible) { m_Visible.current = visible; }
    /// The display's; true at first.
    void SetControlVisible(bool visible) { m_ControlVisible.current = visible; }
    void SetShortcut(bool shortcut) { m_Shortcut.current = shortcut; }
    void SetControlID(int controlID) { m_ControlID.current = controlID; }
    /// Takes \a config as a whole: it counts as reported as far as it says so itself.
    void SetActivationConfig(TActivationConfig const& config) { Own().config = config; }

    /// Whether the id or a current value differs. The definition for the wheel is not asked.
    bool operator!=(TElementState const& other) const;

    /// Whether a value has changed since the last Clean().
    bool IsDirty() const;
    void Clean();

    /// Takes the current values of \a other. The id, the definition for the wheel and what was last reported
    /// stay.
    void SetCurrent(TElementState const& other);

private:
    struct TShared : QSharedData
    {
        TShared(TMMIDef const& leadsTo, TActivationConfig const& does, QString const& text,
                QString const& icon);

        bool IsDirty() const { return config.IsDirty() || name.IsDirty() || iconName.IsDirty(); }
        bool HasSameValues(TShared const& other) const;

        TActivationConfig config;
        TCleanValue<QString> name;
        TCleanValue<QString> iconName;
        TMMIDef mmiDef;
    };

    TShared& Own();

    QSharedDataPointer<TShared> m_Shared;
    TCleanValue<bool> m_Enabled;
    TCleanValue<bool> m_Visible;
    TCleanValue<bool> m_ControlVisible;
    TCleanValue<bool> m_Shortcut;
    TCleanValue<int> m_ControlID;
    int m_ID = NoID;
};

/// Whether a value of one of them has changed since its last Clean().
COMMONUILIB_EXPORT bool IsAnyDirty(std::vector<TElementState> const& elements);
