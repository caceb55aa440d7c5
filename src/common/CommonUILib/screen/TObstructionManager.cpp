#include "TObstructionManager.h"

#include "TObstruction.h"

#include <QPointer>
#include <QWidget>

#include <algorithm>

TObstructionManager::TObstructionManager(QWidget* reference, QObject* parent)
    : QObject(parent)
    , m_Reference(reference)
{
}

TObstructionManager::~TObstructionManager()
{
    qDeleteAll(m_Obstructions);
}

void TObstructionManager::RegisterObstruction(QWidget* widget, EObstructionSide side)
{
    if (!widget)
        return;
    auto* const obstruction = new TObstruction(m_Reference, widget, side);
    connect(obstruction, &TObstruction::ObstructionGeomChanged, this,
            &TObstructionManager::ObstructionLimitChanged);
    m_Obstructions.push_back(obstruction);
    connect(widget, &QObject::destroyed, this, &TObstructionManager::OnObstructionDestroyed,
            Qt::UniqueConnection);
}

void TObstructionManager::RemoveObstruction(QObject* object)
{
    if (!object)
        return;
    disconnect(object, nullptr, this, nullptr);

    // The object may be a widget in the middle of its destruction, so only pointers are compared.
    auto const isOfObject = [object](TObstruction const* obstruction)
    { return static_cast<QObject*>(obstruction->GetWidget()) == object; };
    auto const firstRemoved = std::stable_partition(m_Obstructions.begin(), m_Obstructions.end(),
                                                    [&](TObstruction const* o) { return !isOfObject(o); });
    std::set<EObstructionSide> sides;
    for (auto removed = firstRemoved; removed != m_Obstructions.end(); ++removed)
    {
        sides.insert((*removed)->GetSide());
        delete *removed;
    }
    m_Obstructions.erase(firstRemoved, m_Obstructions.end());

    NotifySides(sides);
}

int TObstructionManager::GetObstructionCount() const
{
    return static_cast<int>(m_Obstructions.size());
}

QList<TObstructionData> TObstructionManager::GetObstructionData() const
{
    QList<TObstructionData> data;
    for (TObstruction const* const obstruction : m_Obstructions)
    {
        if (!obstruction->GetWidget()->isVisible())
            continue;
        QRect const rect = obstruction->GetGeometry();
        data.append({rect.left(), rect.top(), rect.right(), rect.bottom(), obstruction->GetSide()});
    }
    return data;
}

void TObstructionManager::SetUpdatesEnabled(QWidget* widget, bool enabled)
{
    if (TObstruction* const obstruction = Find(widget))
    {
        obstruction->SetUpdatesEnabled(enabled);
        Q_EMIT ObstructionLimitChanged(obstruction->GetSide());
    }
}

void TObstructionManager::SetUpdatesEnabled(std::vector<QWidget*> const& widgets, bool enabled)
{
    std::set<EObstructionSide> switchedOn;
    for (QWidget* const widget : widgets)
    {
        TObstruction* const obstruction = Find(widget);
        if (!obstruction)
            continue;
        if (enabled && !obstruction->GetUpdatesEnabled())
            switchedOn.insert(obstruction->GetSide());
        obstruction->SetUpdatesEnabled(enabled);
    }
    NotifySides(switchedOn);
}

void TObstructionManager::NotifySides(std::set<EObstructionSide> const& sides)
{
    QPointer<TObstructionManager> const self(this);
    for (EObstructionSide const side : sides)
    {
        if (self)
            Q_EMIT ObstructionLimitChanged(side);
    }
}

bool TObstructionManager::GetUpdatesEnabled(QWidget* widget) const
{
    TObstruction const* const obstruction = Find(widget);
    return obstruction && obstruction->GetUpdatesEnabled();
}

void TObstructionManager::OnObstructionDestroyed(QObject* object)
{
    RemoveObstruction(object);
}

TObstruction* TObstructionManager::Find(QWidget* widget) const
{
    auto const found = std::find_if(m_Obstructions.begin(), m_Obstructions.end(),
                                    [widget](TObstruction const* o) { return o->GetWidget() == widget; });
    return found == m_Obstructions.end() ? nullptr : *found;
}
