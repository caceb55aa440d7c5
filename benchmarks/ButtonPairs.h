#pragma once

#include "BenchScreen.h"
#include "PixmapManager.h"
#include "TPushButton.h"

#include <QApplication>
#include <QIcon>
#include <QPushButton>
#include <QStyleFactory>
#include <QWidget>

#include <memory>

/// A button of the toolkit and the stock button that it is held against: same place, icon and text, at the
/// standard size.
namespace ButtonPairs
{
constexpr QSize Size(60, 57);
constexpr int IconSide = 32;

inline QString Icon()
{
    return QStringLiteral("icon-info");
}

inline QString Text()
{
    return QStringLiteral("Sections");
}

inline TPushButton* MakeOwn(QWidget* parent)
{
    auto* const button = new TPushButton(parent, QString(), Size, QPoint(), 1, QString());
    button->SetIcon(Icon(), QSize(IconSide, IconSide), true);
    button->SetText(Text(), QString(), true, QString(), false);
    return button;
}

/// With a skin that leaves nothing of what is behind.
inline TPushButton* MakeOpaque(QWidget* parent)
{
    TPushButton* const button = MakeOwn(parent);
    button->SetBackground(QStringLiteral("NavBarButton"));
    return button;
}

inline QPushButton* MakeStock(QWidget* parent)
{
    static QIcon const icon(
        *MainScreen->GetPixmapManager()->GetResizedIcon(Icon(), IconSide, KVN::ICON_NORMAL));
    auto* const button = new QPushButton(icon, Text(), parent);
    button->setIconSize(QSize(IconSide, IconSide));
    button->setMinimumSize(Size);
    button->resize(Size);
    button->show();
    return button;
}

/// A shown window for the buttons, and a screen for their art.
class TStage
{
public:
    TStage()
        : m_Screen(0)
    {
        QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
        window.resize(800, 600);
        window.show();
        QCoreApplication::processEvents();
    }

private:
    TBenchScreen m_Screen;

public:
    QWidget window;
};
} // namespace ButtonPairs
