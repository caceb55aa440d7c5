#pragma once

#include "MMICapableWidget.h"

#include <QHash>
#include <QStringList>
#include <QTimer>
#include <QVector>
#include <QWidget>

class TConfigMenu;

/// The menu of the setup: a tree of rows at the lower edge, the top row lowest and each open level above the
/// one that opened it. Rows slide in from behind the row below them and back. It holds no screens, but tells
/// which one the operator has come to.
///
/// A screen or group has a path, the keys from the top row on with slashes between them: "implement/boom". A
/// group that the operator opens shows its first screen at once, so that there is always one.
///
/// The wheel enters the menu as a whole: a notch brings the next screen, or the previous one, with its rows;
/// the enter key goes on to what SetScreenEntry() named, the back key leaves.
class TSetupMenu : public QWidget, public KVN::MMICapableWidget
{
    Q_OBJECT

public:
    static constexpr int RowHeight = 90;

    /// Empty. Its width comes from outside, its height is its own.
    explicit TSetupMenu(QWidget* parent);

    /// \name The tree
    /// From the top down: a path whose group was not added is ignored, as is one that is there.
    /// @{
    /// A group is seen as long as one of its screens is.
    void AddGroup(QString const& path, QString const& text, QString const& toolTip);
    /// Not seen until SetScreenAvailable().
    void AddScreen(QString const& path, QString const& text, QString const& toolTip);
    void SetScreenAvailable(QString const& path, bool available);
    /// In the order in which the wheel comes to them.
    QStringList AvailableScreens() const;
    /// @}

    /// Opens the rows that lead to the screen and selects it. False, and nothing else, if \a path is not
    /// that of an available screen.
    bool ShowScreen(QString const& path);
    /// The screen that is shown; empty at first.
    QString Screen() const;
    /// How many levels are seen, those included that are about to go.
    int LevelCount() const;
    /// Where the enter key leads from the menu; null for nowhere.
    void SetScreenEntry(KVN::MMICapableWidget* entry);

    QSize sizeHint() const override;
    void OnMMIWheelLeft() override;
    void OnMMIWheelRight() override;
    KVN::MMICapableWidget* OnMMIEnter() override;

Q_SIGNALS:
    /// The operator has come to another screen.
    void ScreenChanged(QString const& path);
    /// The menu needs another height, as sizeHint() says.
    void HeightChanged();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    struct TRow
    {
        TConfigMenu* menu;
        int parent;          ///< the row from behind which it slides; -1 for the top row
        bool isOpen = false; ///< where it slides to
        double share = 0.0;  ///< of its way out from there
    };

    int MakeRow(QString const& group, int parent);
    int RowOf(QString const& path) const;
    void AddElement(QString const& path, QString const& text, QString const& toolTip, TConfigMenu* subMenu);
    void ShowElement(QString const& path, bool visible);
    bool IsAvailable(QString const& screen) const;
    void Choose(QString const& path);
    void Page(bool forward);

    void OnItemClicked();
    void OnScreen(QString const& path);
    void OnLevelTransition(QWidget* menu, bool show);
    void OnFrame();
    void FinishSlides();
    bool IsAnyRowSliding() const;
    void PlaceRows();
    double LevelOf(TRow const& row) const; // the top row's is 0
    void UpdateHeight();

    QVector<TRow> m_Rows;
    QHash<QString, int> m_Ids;    // of the elements, by path
    QHash<QString, int> m_Groups; // the rows that they open, by path
    QStringList m_Screens;        // in the order in which the wheel comes to them
    QString m_Screen;
    bool m_IsPaging = false;
    int m_LevelCount = 1;
    qint64 m_LastFrame = 0;
    QTimer m_FrameTimer;
    KVN::MMICapableWidget* m_Entry = nullptr;
};
