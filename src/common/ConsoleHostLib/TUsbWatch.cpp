#include "TUsbWatch.h"

#include "TMountTable.h"
#include "TUDisks.h"

#include <QDir>
#include <QFileInfo>
#include <QPointer>

#include <algorithm>
#include <utility>

namespace
{
bool IsReadableFolder(QString const& path)
{
    QFileInfo const info(path);
    return info.isDir() && info.isReadable();
}
} // namespace

TUsbWatch::TUsbWatch(TSystem const& system, QObject* parent)
    : QObject(parent)
    , m_Before(Install(this))
    , m_MountTable(new TMountTable(system.mountTable, system.deviceTree, this))
    , m_UDisks(new TUDisks(system.busAddress, this))
{
    connect(m_MountTable, &TMountTable::Changed, this, &TUsbWatch::OnSticksChanged);
    connect(m_UDisks, &TUDisks::Changed, this, &TUsbWatch::OnSticksChanged);
    OnSticksChanged();
}

TUsbWatch::TUsbWatch(QString const& folder, QObject* parent)
    : QObject(parent)
    , m_Before(Install(this))
    , m_Folder(QDir(folder).absolutePath())
{
    // The folder is no drive that the system could unmount.
    m_EjectBefore = TExternalDrive::SetHostEject(
        [watch = QPointer<TUsbWatch>(this)](QString const& path)
        {
            if (!watch || path != watch->m_Stick)
                return false;
            watch->Pull();
            return true;
        });
    Insert();
}

TUsbWatch::~TUsbWatch()
{
    if (IsFolder())
        TExternalDrive::SetHostEject(m_EjectBefore);
    Install(m_Before);
}

bool TUsbWatch::IsExternalDrivePresent() const
{
    return !m_Stick.isEmpty();
}

bool TUsbWatch::GetExternalDrivePath(QString& path) const
{
    if (IsExternalDrivePresent())
        path = m_Stick;
    return IsExternalDrivePresent();
}

bool TUsbWatch::IsFolder() const
{
    return !m_Folder.isEmpty();
}

void TUsbWatch::Insert()
{
    if (IsFolder() && IsReadableFolder(m_Folder))
        SetStick(m_Folder);
}

void TUsbWatch::Pull()
{
    if (IsFolder())
        SetStick(QString());
}

void TUsbWatch::OnSticksChanged()
{
    QStringList sticks = m_UDisks->IsAnswering() ? m_UDisks->Sticks() : m_MountTable->Sticks();
    sticks.erase(std::remove_if(sticks.begin(), sticks.end(),
                                [](QString const& path) { return !IsReadableFolder(path); }),
                 sticks.end());
    if (m_Stick.isEmpty() || !sticks.contains(m_Stick))
        SetStick(sticks.value(0));
}

void TUsbWatch::SetStick(QString const& path)
{
    if (path == m_Stick)
        return;
    QString const before = std::exchange(m_Stick, path);
    QPointer<TUsbWatch> const self(this);
    if (!before.isEmpty())
        Q_EMIT Pulled(before);
    // Whoever heard of it may have changed the stick once more.
    if (self && !path.isEmpty() && path == m_Stick)
        Q_EMIT Inserted(path);
}
