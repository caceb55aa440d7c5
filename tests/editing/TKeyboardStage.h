#pragma once

#include "Charset.h"
#include "KeyCheck.h"
#include "TestScreen.h"
#include "TFinger.h"
#include "TKey.h"
#include "TKeyboard.h"
#include "TMMICapableWidgetNavigator.h"

#include <algorithm>

/// A shown screen with a keyboard, a finger and a wheel; what the keyboard says is written down.
class TKeyboardStage
{
public:
    explicit TKeyboardStage(int layout = 0, int alternative = -1)
        : navigator(screen.get())
        , finger(screen.get())
        , keyboard(new TKeyboard(nullptr))
    {
        screen->SetMMINavigator(&navigator);
        keyboard->SetLayout(EKeyboardLayout(layout), EKeyboardLayout(alternative));
        QObject::connect(keyboard, &TKeyboard::NewChar, keyboard, [this](QChar c) { typed += c; });
        keyboard->ShowWindow(false);
    }
    struct TOfTheScreen
    {
    };
    /// With the screen's own keyboard, which is not shown yet.
    explicit TKeyboardStage(TOfTheScreen)
        : navigator(screen.get())
        , finger(screen.get())
        , keyboard(screen->GetKeyboard())
    {
        screen->SetMMINavigator(&navigator);
        keyboard->SetLayout(KEYBOARD_LAYOUT_ENGLISH, KEYBOARD_LAYOUT_NONE);
    }
    ~TKeyboardStage() { delete keyboard.data(); }
    TKeyboardStage(TKeyboardStage const&) = delete;
    TKeyboardStage& operator=(TKeyboardStage const&) = delete;

    /// The keys that are seen, row by row from the left.
    QVector<TKey*> Keys() const
    {
        QVector<TKey*> keys;
        auto const all = keyboard->findChildren<TKey*>();
        std::copy_if(all.begin(), all.end(), std::back_inserter(keys),
                     [](TKey const* key) { return !key->isHidden(); });
        std::sort(keys.begin(), keys.end(),
                  [](TKey const* a, TKey const* b)
                  { return a->y() != b->y() ? a->y() < b->y() : a->x() < b->x(); });
        return keys;
    }
    /// What the keys of each row type, from the top.
    QStringList Rows() const
    {
        QStringList rows;
        int y = -1;
        auto const keys = Keys();
        for (TKey const* const key : keys)
        {
            if (key->GetCharacter().isNull())
                continue;
            if (key->y() != y)
                rows.append(QString());
            y = key->y();
            rows.last() += key->GetText();
        }
        return rows;
    }
    QString AllFaces() const { return Rows().join(QLatin1Char('\n')); }
    TKey* Key(QChar character) const
    {
        auto const keys = Keys();
        auto const found =
            std::find_if(keys.begin(), keys.end(),
                         [character](TKey const* key) { return key->GetCharacter() == character; });
        return found == keys.end() ? nullptr : *found;
    }
    /// A key without a character, by its icon.
    TKey* Special(QString const& icon) const
    {
        auto const keys = Keys();
        auto const found = std::find_if(keys.begin(), keys.end(),
                                        [&icon](TKey const* key) { return key->GetIconName() == icon; });
        return found == keys.end() ? nullptr : *found;
    }
    TKey* Shift() const { return Special(QStringLiteral("Shift")); }
    TKey* Lock() const
    {
        TKey* const toLower = Special(QStringLiteral("CapsLockToLower"));
        return toLower ? toLower : Special(QStringLiteral("CapsLockToUpper"));
    }
    TKey* LayoutKey() const { return Special(QStringLiteral("icon-keyboard")); }
    TKey* Ok() const { return Special(QStringLiteral("icon-tick")); }
    TKey* CancelKey() const { return Special(QStringLiteral("icon-cross")); }
    TKey* BackspaceKey() const { return Special(QStringLiteral("icon-backspace")); }
    TKey* Left() const { return Special(QStringLiteral("icon-left")); }
    TKey* Right() const { return Special(QStringLiteral("icon-right")); }

    /// Touches the key of each character; false if there is none.
    bool Type(QString const& text)
    {
        for (QChar const character : text)
        {
            TKey* const key = Key(character);
            if (!key)
                return false;
            finger.Touch(key);
        }
        return true;
    }
    QString Enabled() const
    {
        QString enabled;
        auto const keys = Keys();
        for (TKey const* const key : keys)
        {
            if (key->isEnabled() && !key->GetCharacter().isNull())
                enabled += key->GetCharacter();
        }
        return enabled;
    }

    QImage Picture() const { return screen->grab(keyboard->geometry()).toImage(); }

    void Tick(qint64 ms = 100)
    {
        screen.m_Clock.Advance(ms);
        navigator.UpdateFocus();
    }

    TTestScreen screen;
    TMMICapableWidgetNavigator navigator;
    TFinger finger;
    QPointer<TKeyboard> keyboard;
    QString typed;
};

/// Refuses the characters that it was made with.
class TRefusingCheck : public Keyboard_layouts_api::KeyCheck
{
public:
    explicit TRefusingCheck(QString const& refused, QString const& refusedText = QString())
        : m_Refused(refused)
        , m_RefusedText(refusedText)
    {
    }

    bool IsCharacterAllowed(QChar character) const override { return !m_Refused.contains(character); }
    bool IsStringAllowed(QString const& text) const override
    {
        return m_RefusedText.isEmpty() || text != m_RefusedText;
    }

private:
    QString const m_Refused;
    QString const m_RefusedText;
};

/// A charset with the Georgian letters, which know no capitals, and a page of signs with keys of several
/// widths.
class TGeorgianCharset : public Keyboard_layouts_api::Charset
{
public:
    int GetLayoutCount() const override { return 2; }
    QString GetLayoutName(int layout) const override
    {
        return layout == 0 ? QStringLiteral("Georgian") : QStringLiteral("Signs");
    }
    int GetRowCount(int layout) const override { return layout == 0 ? 4 : 3; }
    QString GetRowText(int layout, int row, bool capitals) const override
    {
        static QStringList const letters = {QStringLiteral("ქწერტყუიოპ"), QStringLiteral("ასდფგჰჯკლ"),
                                            QStringLiteral("ზხცვბნმ"), QStringLiteral(" ")};
        static QStringList const lettersAgain = {QStringLiteral("ქჭეღთყუიოპ"), QStringLiteral("აშდფგჰჟკლ"),
                                                 QStringLiteral("ძხჩვბნმ"), QStringLiteral(" ")};
        static QStringList const signs = {QStringLiteral("++--*/"), QStringLiteral("(\uFFFD\uFFFD)^´"),
                                          QStringLiteral(" ")};
        QStringList const& cases = capitals ? lettersAgain : letters;
        return (layout == 0 ? cases : signs).value(row);
    }
};
