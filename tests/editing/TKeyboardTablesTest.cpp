#include "TKeyboardTables.h"
#include "TestCase.h"

#include <QHash>

namespace
{
/// One row that a layout has in place of the one that most have.
struct TOwnRow
{
    int layout;
    int row;
    QString keys;
};

constexpr int TopLetters = 1;
constexpr int HomeLetters = 2;
constexpr int LowLetters = 3;

// What most layouts have, by row.
QStringList const UsualRows = {QStringLiteral("1234567890"),
                               QStringLiteral("QWERTYUIOP"),
                               QStringLiteral("ASDFGHJKL"),
                               QStringLiteral("ZXCVBNM"),
                               QStringLiteral("-=[]\\,./"),
                               QStringLiteral(" "),
                               QString(),
                               QString(),
                               QString()};

QString const Grave = QString(QChar(0x60));

QVector<TOwnRow> FirstOwnRows()
{
    return {
        {0, 4, QStringLiteral("-=[]\\:,./")},

        {1, TopLetters, QStringLiteral("QWERTZUIOPÜ")},
        {1, HomeLetters, QStringLiteral("ASDFGHJKLÖÄ")},
        {1, LowLetters, QStringLiteral("YXCVBNMß")},

        {2, HomeLetters, QStringLiteral("ASDFGHJKL¨^")},
        {2, LowLetters, QStringLiteral("ZXCVBNMÇ´") + Grave + QLatin1Char('~')},
        {2, 8, QStringLiteral("¨AEIOU´AEIOU") + Grave + QStringLiteral("AEIOU^AEIOU~AO")},

        {3, 0, QStringLiteral("1234567890´")},
        {3, TopLetters, QStringLiteral("AZERTYUIOP^")},
        {3, HomeLetters, QStringLiteral("QSDFGHJKLM¨")},
        {3, LowLetters, QStringLiteral("WXCVBNÇÆŒ~") + Grave},
        {3, 8, QStringLiteral("¨AEIOUY´E") + Grave + QStringLiteral("AEU^AEIOU~N")},

        {4, HomeLetters, QStringLiteral("ASDFGHJKL¨^")},
        {4, LowLetters, QStringLiteral("ZXCVBNMÑ´") + Grave + QLatin1Char('~')},
        {4, 8, QStringLiteral("¨AEIOU´AEOU") + Grave + QStringLiteral("AEIOU^AEIOU~AO")},

        {5, TopLetters, QStringLiteral("ЙЦУКЕНГШЩЗХЪ")},
        {5, HomeLetters, QStringLiteral("ФЫВАПРОЛДЖЭ")},
        {5, LowLetters, QStringLiteral("ЯЧСМИТЬБЮ")},

        {6, TopLetters, QStringLiteral("ЯВЕРТЪУИОПШ")},
        {6, HomeLetters, QStringLiteral("АСДФГХЙКЛЮЩ")},
        {6, LowLetters, QStringLiteral("ЗЬЦЖБНМЫЧЭ")},

        {7, TopLetters, QStringLiteral("QWERTYUIOPÅ")},
        {7, HomeLetters, QStringLiteral("ASDFGHJKLÄÖ")},

        {8, HomeLetters, QStringLiteral("ASDFGHJKLˇ")},
        {8, LowLetters, QStringLiteral("ZXCVBNMŮ´")},
        {8, 8, QStringLiteral("´AEIOUYˇCDENRSTZ")},

        {9, TopLetters, QStringLiteral("QWERTYUIOPÅ")},
        {9, HomeLetters, QStringLiteral("ASDFGHJKLÆØ")},

        {10, TopLetters, QStringLiteral("QWERTYUIOPĄ")},
        {10, HomeLetters, QStringLiteral("ASDFGHJKLĘ")},
        {10, LowLetters, QStringLiteral("ZXCVBNMŻŁ´")},
        {10, 8, QStringLiteral("´CNOSZ")},

        {11, HomeLetters, QStringLiteral("ASDFGHJKLˇ")},
        {11, LowLetters, QStringLiteral("ZXCVBNM¯¸")},
        {11, 8, QStringLiteral("ˇCSZ¯AEIU¸GKLN")},

        {12, HomeLetters, QStringLiteral("ASDFGHJKLˇ")},
        {12, LowLetters, QStringLiteral("ZXCVBNMĖŪ˛")},
        {12, 8, QStringLiteral("ˇCSZ˛AEIU")},
    };
}

QVector<TOwnRow> LastOwnRows()
{
    return {
        {13, TopLetters, QStringLiteral("ςΕΡΤΥΘΙΟΠ")},
        {13, HomeLetters, QStringLiteral("ΑΣΔΦΓΗΞΚΛ")},
        {13, LowLetters, QStringLiteral("ΖΧΨΩΒΝΜ")},

        {14, TopLetters, QStringLiteral("УЕИШЩКСДЗЦ")},
        {14, HomeLetters, QStringLiteral("ЬЯАОЖГТНВМЧ")},
        {14, LowLetters, QStringLiteral("ЮЙЪФХПРЛБ")},

        {15, TopLetters, QStringLiteral("ЯВЕРТЪУИОПШЩ")},
        {15, HomeLetters, QStringLiteral("АСДФГХЙКЛЧЮ")},
        {15, LowLetters, QStringLiteral("ЗЬЦЖБНМ")},

        {16, TopLetters, QStringLiteral("QWERTYUIOPĂÂ")},
        {16, HomeLetters, QStringLiteral("ASDFGHJKLÎŞ")},
        {16, LowLetters, QStringLiteral("ZXCVBNMŢ")},

        {17, TopLetters, QStringLiteral("QWERTYUIOPÖ")},
        {17, HomeLetters, QStringLiteral("ASDFGHJKLÜ")},
        {17, LowLetters, QStringLiteral("ZXCVBNMŐŰ´")},
        {17, 8, QStringLiteral("´AEIOU")},

        {18, TopLetters, QStringLiteral("QWERTYUIOPŠĐ")},
        {18, HomeLetters, QStringLiteral("ASDFGHJKLČĆ")},
        {18, LowLetters, QStringLiteral("ZXCVBNMŽ")},

        {19, TopLetters, QStringLiteral("QWERTYUIOPĞÜ")},
        {19, HomeLetters, QStringLiteral("ASDFGHJKLŞİ")},
        {19, LowLetters, QStringLiteral("ZXCVBNMÖÇ")},

        {20, TopLetters, QStringLiteral("QWERTYUIOPÜÕ")},
        {20, HomeLetters, QStringLiteral("ASDFGHJKLÖÄ")},
        {20, LowLetters, QStringLiteral("ZXCVBNMŠŽ")},

        {21, TopLetters, QStringLiteral("QWERTYUIOPÄ")},
        {21, HomeLetters, QStringLiteral("ASDFGHJKLˇ")},
        {21, LowLetters, QStringLiteral("ZXCVBNMÔ´")},
        {21, 8, QStringLiteral("´AEIOUYLRˇCDLNSTZ")},

        {22, LowLetters, QStringLiteral("ZXCVBNM´") + Grave},
        {22, 8, QStringLiteral("´AEIOU") + Grave + QStringLiteral("AEIOU")},

        {23, TopLetters, QStringLiteral("ABCDEF")},
        {23, HomeLetters, QString()},
        {23, LowLetters, QString()},
        {23, 4, QString()},
        {23, 5, QString()},
    };
}

QVector<TOwnRow> OwnRows()
{
    return FirstOwnRows() + LastOwnRows();
}

/// An accent by its dead key, with the accented forms of those letters alone that have one.
struct TAccent
{
    char16_t deadKey;
    QString plain;
    QString accented;
};

QVector<TAccent> Accents()
{
    return {
        {0x00B4, QStringLiteral("ACEILNORSUYZ"), QStringLiteral("ÁĆÉÍĹŃÓŔŚÚÝŹ")},
        {0x0060, QStringLiteral("AEIOU"), QStringLiteral("ÀÈÌÒÙ")},
        {0x00A8, QStringLiteral("AEIOUY"), QStringLiteral("ÄËÏÖÜŸ")},
        {0x007E, QStringLiteral("AINOU"), QStringLiteral("ÃĨÑÕŨ")},
        {0x005E, QStringLiteral("ACEGHIJOSUWY"), QStringLiteral("ÂĈÊĜĤÎĴÔŜÛŴŶ")},
        {0x02C7, QStringLiteral("CDELNRSTZ"), QStringLiteral("ČĎĚĽŇŘŠŤŽ")},
        {0x00AF, QStringLiteral("AEIOU"), QStringLiteral("ĀĒĪŌŪ")},
        {0x00B8, QStringLiteral("CGKLNRST"), QStringLiteral("ÇĢĶĻŅŖŞŢ")},
        {0x02DB, QStringLiteral("AEIU"), QStringLiteral("ĄĘĮŲ")},
    };
}

QString TextOf(char32_t const* text)
{
    return text ? QString::fromUcs4(text) : QString();
}
} // namespace

/// The tables of the keyboard against a copy that was written apart from them.
class TKeyboardTablesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyRowOfEveryLayoutHasItsKeys_data();
    void everyRowOfEveryLayoutHasItsKeys();
    void eachAccentedLetterIsTheRightOne_data();
    void eachAccentedLetterIsTheRightOne();
    void everyDeadKeyOfALayoutStandsInItsAccentsAndOnAKey_data();
    void everyDeadKeyOfALayoutStandsInItsAccentsAndOnAKey();
    void everyAccentableLetterHasAnAccentedForm();
    void noRowHoldsAControlCharacter();
};

void TKeyboardTablesTest::everyRowOfEveryLayoutHasItsKeys_data()
{
    QTest::addColumn<int>("layout");
    for (int layout = 0; layout < KEYBOARD_LAYOUT_COUNT; ++layout)
        QTest::newRow(qPrintable(QStringLiteral("layout %1").arg(layout))) << layout;
}

void TKeyboardTablesTest::everyRowOfEveryLayoutHasItsKeys()
{
    QFETCH(int, layout);
    QStringList expected = UsualRows;
    QVector<TOwnRow> const own = OwnRows();
    for (TOwnRow const& row : own)
    {
        if (row.layout == layout)
            expected[row.row] = row.keys;
    }
    QCOMPARE(expected.size(), TKeyboardTables::RowCount);
    for (int row = 0; row < TKeyboardTables::RowCount; ++row)
        QCOMPARE(TextOf(TKeyboardTables::Layouts[std::size_t(layout)][std::size_t(row)]), expected.at(row));
}

void TKeyboardTablesTest::eachAccentedLetterIsTheRightOne_data()
{
    QTest::addColumn<int>("accent");
    for (int accent = 0; accent < TKeyboardTables::AccentCount; ++accent)
        QTest::newRow(qPrintable(QStringLiteral("accent %1").arg(accent))) << accent;
}

void TKeyboardTablesTest::eachAccentedLetterIsTheRightOne()
{
    QFETCH(int, accent);
    TAccent const expected = Accents().at(accent);
    QCOMPARE(expected.plain.size(), expected.accented.size());
    QCOMPARE(TKeyboardTables::DeadKeys[std::size_t(accent)], expected.deadKey);

    QString const row = TextOf(TKeyboardTables::AccentedChars[std::size_t(accent)]);
    QCOMPARE(row.size(), TKeyboardTables::LetterCount);
    for (int i = 0; i < row.size(); ++i)
    {
        QChar const letter(QLatin1Char(char('A' + i)));
        int const place = expected.plain.indexOf(letter);
        QCOMPARE(row.at(i), place < 0 ? letter : expected.accented.at(place));
    }
}

void TKeyboardTablesTest::everyDeadKeyOfALayoutStandsInItsAccentsAndOnAKey_data()
{
    everyRowOfEveryLayoutHasItsKeys_data();
}

void TKeyboardTablesTest::everyDeadKeyOfALayoutStandsInItsAccentsAndOnAKey()
{
    QFETCH(int, layout);
    TKeyboardTables::TLayout const& rows = TKeyboardTables::Layouts[std::size_t(layout)];
    QString const accents = TextOf(rows[TKeyboardTables::RowAccents]);
    QString keys;
    for (std::size_t row = 0; row <= std::size_t(TKeyboardTables::RowSpacer); ++row)
        keys += TextOf(rows[row]);
    for (char16_t const deadKey : TKeyboardTables::DeadKeys)
        QCOMPARE(accents.count(QChar(deadKey)), keys.count(QChar(deadKey)));
}

void TKeyboardTablesTest::everyAccentableLetterHasAnAccentedForm()
{
    for (TKeyboardTables::TLayout const& rows : TKeyboardTables::Layouts)
    {
        QString const accents = TextOf(rows[TKeyboardTables::RowAccents]);
        QString forms;
        for (QChar const character : accents)
        {
            auto const* const found = std::find(TKeyboardTables::DeadKeys.begin(),
                                                TKeyboardTables::DeadKeys.end(), character.unicode());
            if (found != TKeyboardTables::DeadKeys.end())
                forms = TextOf(
                    TKeyboardTables::AccentedChars[std::size_t(found - TKeyboardTables::DeadKeys.begin())]);
            else
                QVERIFY(forms.at(character.unicode() - 'A') != character);
        }
    }
}

void TKeyboardTablesTest::noRowHoldsAControlCharacter()
{
    for (TKeyboardTables::TLayout const& rows : TKeyboardTables::Layouts)
    {
        for (char32_t const* const row : rows)
        {
            QString const text = TextOf(row);
            QVERIFY(std::all_of(text.begin(), text.end(), [](QChar c) { return c.isPrint(); }));
        }
    }
}

COMMONUI_TEST(TKeyboardTablesTest)

#include "TKeyboardTablesTest.moc"
