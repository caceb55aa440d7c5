// The window manager's memory: the layout as XML, written at the shutdown and read at the start.

#include "ConfigManager.h"
#include "LayoutText.h"
#include "TCanvas.h"
#include "TFullWindow.h"
#include "TMiniWindow.h"
#include "TWindowManager.h"
#include "TXMLSettings.h"

#include <QHash>

namespace
{
QString const DocumentType = QStringLiteral("State");
QString const WindowsTag = QStringLiteral("Windows");
QString const MiniViewStateTag = QStringLiteral("MiniViewState");
QString const MiniViewTag = QStringLiteral("MiniView");
QString const FullViewStateTag = QStringLiteral("FullViewState");
QString const FullViewTag = QStringLiteral("FullView");
QString const ManagerStateTag = QStringLiteral("WindowManagerState");
QString const ActiveMiniviewTag = QStringLiteral("ActiveMiniview");
QString const ActiveFullviewTag = QStringLiteral("ActiveFullview");
QString const TargetName = QStringLiteral("TargetName");
QString const SlotNumber = QStringLiteral("SlotNumber");
constexpr int Indent = 1;

QDomElement AppendSection(QDomElement parent, QString const& tag)
{
    QDomElement section = parent.ownerDocument().createElement(tag);
    parent.appendChild(section);
    return section;
}

// The first element of that name in the document; a search through all of it only where the root has another
// name.
QDomElement FirstElement(QDomDocument const& document, QString const& tag)
{
    QDomElement const root = document.documentElement();
    return root.tagName() == tag ? root : document.elementsByTagName(tag).item(0).toElement();
}

// A window that has nothing to say gets no element.
void AppendWindow(QDomElement section, QString const& tag, QString const& name, TWindow* window)
{
    if (!window)
        return;
    QDomElement element = section.ownerDocument().createElement(tag);
    window->SaveXMLStateSnapshot(element);
    if (!element.hasAttributes() && !element.hasChildNodes())
        return;
    element.setAttribute(TargetName, name);
    section.appendChild(element);
}
} // namespace

bool TWindowManager::SaveStateSnapshot(QDomElement root)
{
    QDomElement const miniViews = AppendSection(root, MiniViewStateTag);
    QDomElement const fullViews = AppendSection(root, FullViewStateTag);
    QDomElement const state = AppendSection(root, ManagerStateTag);
    QMap<int, QString> topViews;
    QList<int> const ids = m_Views.keys();
    for (int const id : ids)
    {
        ViewDetails const view = m_Views.value(id);
        AppendWindow(fullViews, FullViewTag, view.name, view.fullWindow);
        AppendWindow(miniViews, MiniViewTag, view.name, view.miniWindow);
        if (IsSlot(view.slot) && GetSlot(view.slot).endsWith(id))
            topViews.insert(view.slot, view.name);
    }
    for (auto top = topViews.constBegin(); top != topViews.constEnd(); ++top)
    {
        QDomElement active = AppendSection(state, ActiveMiniviewTag);
        active.setAttribute(SlotNumber, top.key());
        active.setAttribute(TargetName, top.value());
    }
    if (ViewDetails const* const full = Find(m_FullViewId))
        AppendSection(state, ActiveFullviewTag).setAttribute(TargetName, full->name);
    return true;
}

QString TWindowManager::GetStateSnapshotXML()
{
    QDomDocument document(DocumentType);
    QDomElement root = document.createElement(WindowsTag);
    document.appendChild(root);
    SaveStateSnapshot(root);
    // Byte for byte, on purpose: layouts in the field were written this way, and names are plain ASCII. What
    // windows write in other letters passes through the same step.
    return QString::fromLatin1(document.toString(Indent).toUtf8().constData());
}

void TWindowManager::SaveShutdownState()
{
    ConfigManager::Instance()->Write(CONFIG_LAYOUT_SNAPSHOT, GetStateSnapshotXML(), true);
}

bool TWindowManager::RestoreStateFromSnapShot(QString const& xml, bool keepMissing)
{
    QDomDocument document(DocumentType);
    if (!IsSaneLayoutText(xml) || !document.setContent(xml))
        return false;
    QDomElement const root = FirstElement(document, WindowsTag);
    return !root.isNull() && RestoreStateFromSnapShot(root, keepMissing);
}

bool TWindowManager::RestoreStateFromSnapShot(QDomElement root, bool keepMissing)
{
    QMap<QString, QDomElement> const sections = TXMLSettings::GetChildrenAsMap(root);
    if (!ReadActiveWindows(sections.value(ManagerStateTag), keepMissing))
        return false;
    AttachElements(sections.value(MiniViewStateTag), false, MiniViewTag);
    // Any tag will do here, as it always has.
    AttachElements(sections.value(FullViewStateTag), true, QString());
    SweepMiniWindows();
    RestorePendingState();
    return true;
}

bool TWindowManager::ReadActiveWindows(QDomElement const& state, bool keepMissing)
{
    for (QDomElement child = state.firstChildElement(); !child.isNull(); child = child.nextSiblingElement())
    {
        QString const name = child.attribute(TargetName);
        if (child.tagName() == ActiveFullviewTag)
        {
            bool const isPresent = FindMini(m_IdsByName.value(name, -1));
            if (!isPresent && !keepMissing)
            {
                m_PendingRestores.clear();
                return false;
            }
            m_PendingRestores.append({true, 0, QDomElement(), name});
        }
        else if (child.tagName() == ActiveMiniviewTag)
        {
            bool isNumber = false;
            int const slot = child.attribute(SlotNumber).toInt(&isNumber, 10);
            if (isNumber)
                m_PendingRestores.append({false, slot, QDomElement(), name});
        }
    }
    return true;
}

// Each name's first place takes the element. Looked up in a table: a damaged layout may hold thousands of
// both.
void TWindowManager::AttachElements(QDomElement const& section, bool isFullView, QString const& tag)
{
    QHash<QString, int> places;
    for (int i = m_PendingRestores.size() - 1; i >= 0; --i)
    {
        if (m_PendingRestores[i].isFullView == isFullView)
            places.insert(m_PendingRestores[i].name, i);
    }
    for (QDomElement child = section.firstChildElement(tag); !child.isNull();
         child = child.nextSiblingElement(tag))
    {
        int const place = places.value(child.attribute(TargetName), -1);
        if (place >= 0)
            m_PendingRestores[place].element = child;
    }
}

void TWindowManager::SweepMiniWindows()
{
    QList<int> const ids = m_Views.keys();
    for (int const id : ids)
    {
        ViewDetails* const view = FindMini(id);
        if (!view)
            continue;
        TakeOutOfSlot(*view, id);
        view->miniState = MINI_VIEW_HIDDEN;
        view->elapsed = 0;
        HideMiniWindow(id);
    }
}

void TWindowManager::RestorePendingState()
{
    QPointer<TWindowManager> const self(this);
    int index = 0;
    while (self && index < m_PendingRestores.size())
    {
        int const id = m_IdsByName.value(m_PendingRestores[index].name, -1);
        if (!Find(id))
        {
            ++index;
            continue;
        }
        // Taken out first: what is served may register views or restore layouts itself.
        ServePendingRestore(m_PendingRestores.takeAt(index), id);
    }
}

void TWindowManager::ServePendingRestore(TPendingWindowRestore const& pending, int id)
{
    if (pending.isFullView)
    {
        QPointer<TWindowManager> const self(this);
        if (pending.name == m_SetupManagerId)
            OnShowSetup(id);
        else
            DisplayFullView(id, false);
        ViewDetails const* const view = self ? Find(id) : nullptr;
        if (view && view->fullWindow)
            view->fullWindow->RestoreXMLStateSnapshot(pending.element);
        return;
    }
    // Behind the setup a mini window is not shown, but it gets its contents back.
    if (!IsSetupView(m_FullViewId))
        DisplayMiniView(pending.slot, id);
    ViewDetails const* const view = FindMini(id);
    if (view)
        view->miniWindow->RestoreXMLStateSnapshot(pending.element);
}

void TWindowManager::RestoreShutdownState()
{
    QString const layout = ConfigManager::Instance()->Read(CONFIG_LAYOUT_SNAPSHOT).toString();
    QPointer<TWindowManager> const self(this);
    bool const isRestored = RestoreStateFromSnapShot(layout, true);
    if (self && (!isRestored || m_FullViewId < 0))
    {
        int const setupId = m_IdsByName.value(m_SetupManagerId, -1);
        if (Find(m_DefaultViewId))
            DisplayFullView(m_DefaultViewId, false);
        else if (Find(setupId))
            OnShowSetup(setupId);
    }
}
