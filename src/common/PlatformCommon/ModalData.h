#pragma once

#include <QString>

#include <functional>

class QWidget;

namespace KVN
{
/// How far a modal window blocks what lies beneath it.
enum EModalType
{
    MODAL_NONE = 0,  ///< not modal
    MODAL_LOCAL = 1, ///< the window's own module is blocked
    MODAL_GLOBAL = 2 ///< the whole screen is blocked, tool bars included
};

/// What a window tells whoever it locks.
struct ModalData
{
    QWidget* widget = nullptr;              ///< the modal window; not owned
    QString title;                          ///< its title
    int modalType = MODAL_NONE;             ///< an EModalType
    std::function<void(QWidget*)> callback; ///< may be empty; called with the layer that asks to go on here
};
} // namespace KVN
