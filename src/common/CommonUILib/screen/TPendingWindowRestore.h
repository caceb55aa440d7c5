#pragma once

#include <QDomElement>
#include <QString>

/// A place in a saved layout that waits for its view to be registered.
struct TPendingWindowRestore
{
    bool isFullView = false;
    int slot = 0;
    QDomElement element; ///< what the window saved; null when it saved nothing
    QString name;        ///< of the view
};
