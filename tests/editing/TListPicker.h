#pragma once

#include "TAnnotatingPlatform.h"
#include "TEditWidget.h"
#include "TFinger.h"
#include "TListControl.h"
#include "TListWidget.h"
#include "TPushButton.h"

/// The operator before a list that was opened over some control of the main screen.
class TListPicker
{
public:
    explicit TListPicker(TFinger& finger)
        : m_Finger(finger)
    {
    }

    /// The overlay that is up, null for none.
    TEditWidget* Overlay() const { return qobject_cast<TEditWidget*>(m_Platform.m_Widget); }
    QStringList Rows() const
    {
        QStringList rows;
        auto* const list = Overlay()->findChild<TListControl*>();
        for (int row = 0; row < list->GetNumberOfItems(); ++row)
            rows << list->GetItemText(row);
        return rows;
    }
    QString Selected() const
    {
        return Overlay()->findChild<TListControl*>()->GetSelectedTextItems().join(QLatin1Char(','));
    }
    void TouchRow(int row)
    {
        auto* const list = Overlay()->findChild<TListWidget*>();
        QPoint const place = list->visualItemRect(list->item(row)).center();
        m_Finger.Touch(list->viewport()->mapTo(MainScreen, place));
    }
    /// The tick is the right one of the two buttons below the list.
    void Accept() { m_Finger.Touch(Buttons().constLast()); }
    void GiveUp() { m_Finger.Touch(Buttons().constFirst()); }

private:
    QList<TPushButton*> Buttons() const
    {
        QList<TPushButton*> buttons;
        auto const all = Overlay()->findChildren<TPushButton*>(QString(), Qt::FindDirectChildrenOnly);
        for (TPushButton* const button : all)
        {
            if (button->isVisible() && !button->GetIconSize().isEmpty())
                buttons << button;
        }
        std::sort(buttons.begin(), buttons.end(),
                  [](TPushButton const* a, TPushButton const* b) { return a->x() < b->x(); });
        return buttons;
    }

    TFinger& m_Finger;
    TAnnotatingPlatform m_Platform;
};
