#pragma once

#include <QString>
#include <QtTest>

/// Texts as a damaged file or a far end may bring them, of 100 000 characters and more, as rows of the column
/// "text".
inline void AddOddTexts()
{
    constexpr int Length = 100000;
    QString mixed;
    QString foreign;
    for (int i = 0; i < Length / 2; ++i)
    {
        mixed += QLatin1Char('a') + QString(QChar(0x05d0 + i % 20));
        foreign += QChar(0x4e00 + i % 5000) + QString(QChar(0x0e01 + i % 40));
    }
    QTest::addColumn<QString>("text");
    QTest::newRow("words") << QStringLiteral("spraying ").repeated(Length / 9 + 1);
    QTest::newRow("no blank") << QString(Length, 'm');
    QTest::newRow("right to left") << QStringLiteral("\u05e9\u05dc\u05d5\u05dd ").repeated(Length / 5);
    QTest::newRow("right to left, no blank") << QString(Length, QChar(0x05d0));
    QTest::newRow("both directions") << mixed;
    QTest::newRow("markup") << QStringLiteral("<p>&amp;<b>& ").repeated(Length / 13 + 1);
    QTest::newRow("line ends") << QStringLiteral("first") + QString(Length, '\n') + QStringLiteral("last");
    QTest::newRow("without glyphs") << foreign;
    QTest::newRow("half a pair and zeroes")
        << QString(Length / 2, QChar(0xd800)) + QString(Length / 2, QChar(0));
}
