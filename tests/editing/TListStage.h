#pragma once

#include "Fonts.h"
#include "Metrics.h"
#include "TestScreen.h"
#include "TFinger.h"
#include "TListWidget.h"
#include "TTestPlatform.h"

constexpr int RowHeight = 50;
constexpr QSize ListSize(300, 225);
inline QColor const StageGround(20, 60, 90);

inline QFont ListFont()
{
    QFont font(STANDARD_BOLD_FONT);
    font.setPixelSize(STANDARD_FONT_SIZE);
    return font;
}

/// A platform that notes the tool tip that is up.
class TListToolTips : public TTestPlatform
{
public:
    void ShowToolTipFor(QWidget* source, int placement, QString const& text,
                        QSharedPointer<QPixmap> icon) override
    {
        QCOMPARE(placement, 0);
        QVERIFY(!icon);
        m_Source = source;
        m_Text = text;
    }
    void HideToolTip() override
    {
        TTestPlatform::HideToolTip();
        m_Source = nullptr;
        m_Text.clear();
    }

    QPointer<QWidget> m_Source;
    QString m_Text;
};

/// A list on a shown window, with a finger.
class TListStage
{
public:
    TListStage()
        : list(&window)
        , finger(&window)
    {
        window.setPalette(QPalette(StageGround));
        window.resize(500, 400);
        list.setGeometry(QRect(QPoint(40, 30), ListSize));
        window.show();
        QCoreApplication::processEvents();
    }

    /// In its upper half: of the row at the bottom that is all there is to be seen.
    QPoint PlaceOfRow(int row) const { return list.pos() + QPoint(20, row * RowHeight + RowHeight / 4); }
    QImage Picture()
    {
        QCoreApplication::processEvents();
        return window.grab(list.geometry()).toImage().convertToFormat(QImage::Format_RGB32);
    }

    TTestScreen screen;
    TListToolTips toolTips;
    QWidget window;
    TListWidget list;
    TFinger finger;
};

/// A window that fills itself with a list of ten rows, which may die.
class TListScene
{
public:
    TListScene()
        : list(new TListWidget(&window))
        , finger(&window)
    {
        window.resize(ListSize);
        list->resize(ListSize);
        for (int i = 0; i < 10; ++i)
            list->AddString(QStringLiteral("row %1").arg(i), RowHeight);
        window.show();
        QCoreApplication::processEvents();
    }

    QWidget window;
    QPointer<TListWidget> list;
    TFinger finger;
};
