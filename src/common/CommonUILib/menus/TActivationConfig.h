#pragma once

#include "CommonUILibExport.h"
#include "EElementHideMode.h"
#include "TCleanValue.h"

#include <QByteArray>
#include <QPointer>

/// What an element of a menu does when it is activated: calls a slot, opens or closes a menu, or both, and
/// hides menus afterwards. Each value stands beside the one last reported; see TMenuState.
///
/// A value, to be copied freely between threads. A receiver that has died counts as none; one that lives in
/// another thread than the activations has to be taken out of its element before it dies.
class COMMONUILIB_EXPORT TActivationConfig
{
public:
    static constexpr int NoArgument = -1;
    static constexpr int NoMenu = -1;

    /// Nothing happens.
    TActivationConfig();
    /// Opens or closes the menu with the id \a menu.
    TActivationConfig(int menu, EElementHideMode hideMode);
    /// Calls the slot of \a receiver that is named \a method, without parentheses; with \a argument unless
    /// that is NoArgument.
    TActivationConfig(QObject* receiver, char const* method, EElementHideMode hideMode, int argument);
    /// Does both.
    TActivationConfig(int menu, QObject* receiver, char const* method, EElementHideMode hideMode,
                      int argument);

    /// Null for none.
    QObject* GetReceiver() const { return m_Receiver.current; }
    /// Empty for none.
    QByteArray GetMethod() const { return m_Method.current; }
    int GetArgument() const { return m_Argument.current; }
    int GetMenuToToggle() const { return m_MenuToToggle.current; }
    EElementHideMode GetHideMode() const { return m_HideMode.current; }

    /// Whether a current value differs.
    bool operator!=(TActivationConfig const& other) const;

    /// Whether a value has changed since the last Clean().
    bool IsDirty() const;
    void Clean();

    /// Takes the current values of \a other; what was last reported stays.
    void SetCurrent(TActivationConfig const& other);

private:
    TCleanValue<QPointer<QObject>> m_Receiver;
    TCleanValue<QByteArray> m_Method; // by its letters: the same name may stand at several addresses
    TCleanValue<int> m_Argument;
    TCleanValue<int> m_MenuToToggle;
    TCleanValue<EElementHideMode> m_HideMode;
};
