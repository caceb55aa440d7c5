#pragma once

#include "TAnnotatingPlatform.h"
#include "TKeyboardStage.h"
#include "TMMICapableWeakRef.h"
#include "TPushButton.h"
#include "TTextEditWidget.h"

#include <QKeyEvent>
#include <QLineEdit>

/// A shown screen with a control on a page and the editor of its text; what the editor says is written down.
class TTextEditStage : public TKeyboardStage
{
public:
    TTextEditStage()
        : TKeyboardStage(TOfTheScreen())
        , page(new QWidget(screen.get()))
        , source(new TPushButton(page, QString(), QSize(200, 60), QPoint(40, 30), 1, QString()))
        , editor(MakeEditor(source))
    {
        page->setGeometry(100, 50, 600, 300);
        page->show();
        QApplication::setActiveWindow(screen.get());
        source->setGeometry(40, 30, 200, 60);
        QObject::connect(editor, &TTextEditWidget::NewText, page,
                         [this](QString const& text) { texts.append(text); });
        QObject::connect(editor, &TTextEditWidget::Cancel, page, [this] { ++cancelled; });
    }
    ~TTextEditStage() { delete editor.data(); }

    /// Owned by whoever asks.
    static TTextEditWidget* MakeEditor(QWidget* from)
    {
        auto* const made = new TTextEditWidget(nullptr);
        made->SetPosition(from, {});
        return made;
    }
    void Open(QString const& text)
    {
        editor->SetValue(text);
        editor->Open();
    }

    static QLineEdit* LineOf(TTextEditWidget const* of) { return of->findChild<QLineEdit*>(); }
    QLineEdit* Line() const { return LineOf(editor); }
    QString Text() const { return Line()->text(); }
    TPushButton* Value() const
    {
        return editor->findChild<TPushButton*>(QString(), Qt::FindDirectChildrenOnly);
    }
    QRect SourceOnScreen() const { return {source->mapTo(screen.get(), QPoint()), source->size()}; }

    /// What is seen in an empty place of the value field.
    QColor Pixel() const
    {
        QRect const place = SourceOnScreen();
        return screen->grab(QRect(place.topLeft() + QPoint(20, place.height() / 2), QSize(1, 1)))
            .toImage()
            .pixelColor(0, 0);
    }
    /// \name What a host does with the editor of a source
    /// @{
    void MoveSource(QRect const& place) const
    {
        source->setGeometry(place);
        editor->PositionChanged();
    }
    void HideSource() const
    {
        source->hide();
        editor->hide();
    }
    void ShowSource() const
    {
        source->show();
        editor->show();
        editor->PositionChanged();
    }
    void DeleteSource()
    {
        delete source;
        platform.HideAnnotation(editor);
    }
    /// @}

    /// Turns the wheel to \a key, from the first key after the opening and from the last one turned to since.
    void TurnTo(TKey* key)
    {
        Tick(1000);
        auto const stops = navigator.FindMMICapableChildren(TMMICapableWeakRef(keyboard.data()));
        int const goal = stops.indexOf(TMMICapableWeakRef(key));
        while (m_Stop < goal && !stops.at(m_Stop)->IsMMIWidgetActive())
            ++m_Stop;
        int const direction = goal < m_Stop ? -1 : 1;
        while (m_Stop != goal)
        {
            m_Stop += direction;
            if (stops.at(m_Stop)->IsMMIWidgetActive())
                direction < 0 ? navigator.OnWheelLeft() : navigator.OnWheelRight();
        }
        Tick();
    }

    /// A key of the operator's own keyboard on the editor's line.
    void PressKey(int key, QString const& text = QString(),
                  Qt::KeyboardModifiers modifiers = Qt::NoModifier) const
    {
        QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
        QCoreApplication::sendEvent(Line(), &event);
    }
    void PressKeys(QString const& text) const
    {
        for (QChar const character : text)
            PressKey(0, QString(character));
    }

    /// What keeps the keyboard from being the screen's own again, as it was found.
    QString KeyboardFault() const
    {
        if (!keyboard)
            return QStringLiteral("the keyboard is lost");
        if (!keyboard->isHidden() || keyboard->parentWidget())
            return QStringLiteral("the keyboard is not back");
        keyboard->ShowWindow(false);
        auto const keys = Keys();
        bool const areAllEnabled =
            std::all_of(keys.begin(), keys.end(), [](TKey const* key) { return key->isEnabled(); });
        bool const isEnglish = Rows().value(1) == QLatin1String("QWERTYUIOP");
        keyboard->HideWindow();
        if (!areAllEnabled)
            return QStringLiteral("keys stayed dead");
        return isEnglish ? QString() : QStringLiteral("another layout stayed");
    }
    /// What is left of an edit on the screen; empty when nothing is.
    QString Remains() const
    {
        if (!screen->GetLockingWidgets().isEmpty())
            return QStringLiteral("a lock stayed");
        if (editor && (editor->isVisible() || !editor->isHidden() || editor->parentWidget()))
            return QStringLiteral("the editor is not down");
        return KeyboardFault();
    }

    TAnnotatingPlatform platform;
    QPointer<QWidget> page;
    QPointer<TPushButton> source;
    QPointer<TTextEditWidget> editor;
    QStringList texts;
    int cancelled = 0;

private:
    int m_Stop = 0;
};
