#pragma once

#include "PlatformCommonExport.h"

#include <QMetaType>
#include <QString>
#include <QUuid>

namespace KVN
{
/// Identifies a module, or one view within a module: the module's UUID and the number of the view in it, 0
/// for the module itself. Ordered by module, then view. The string form consists of hexadecimal digits and
/// hyphens only: the UUID in lower case without braces, followed, for a view other than 0, by a hyphen and
/// the view in hexadecimal.
class PLATFORMCOMMON_EXPORT MorvaneID
{
public:
    /// An invalid id.
    MorvaneID() = default;
    /// \a view counts from 1, 0 is the module itself. A null \a module gives the invalid id, whatever the
    /// view.
    explicit MorvaneID(QUuid const& module, quint32 view = 0);

    /// The string form; empty for an invalid id.
    QString ToString() const;

    /// The id that ToString() gave \a text for. Letters may be of either case and the UUID may stand in
    /// braces; anything else gives an invalid id.
    static MorvaneID FromString(QString const& text);

    /// False for a default constructed id and for one of a null UUID.
    bool IsValid() const;

    /// The UUID of the module that the id belongs to.
    QUuid GetModuleUID() const;

    /// The number of the view within its module.
    quint32 GetView() const;

    friend bool operator==(MorvaneID const& left, MorvaneID const& right)
    {
        return left.m_Module == right.m_Module && left.m_View == right.m_View;
    }
    friend bool operator!=(MorvaneID const& left, MorvaneID const& right) { return !(left == right); }
    friend bool operator<(MorvaneID const& left, MorvaneID const& right)
    {
        return left.m_Module == right.m_Module ? left.m_View < right.m_View : left.m_Module < right.m_Module;
    }

private:
    QUuid m_Module;
    quint32 m_View = 0;
};
} // namespace KVN

Q_DECLARE_METATYPE(KVN::MorvaneID)
