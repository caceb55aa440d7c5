#pragma once

#include <QCoreApplication>
#include <QStringList>

#include <cstdio>

/// What a program for an instruction counter is told to do: two words, and how often. Only with a
/// QCoreApplication.
class TCountArguments
{
public:
    /// Prints \a usage, the program and its arguments, and gives what the program then exits with.
    static int Refuse(char const* usage)
    {
        std::fprintf(stderr, "Usage: %s\n", usage);
        return 2;
    }

    QString Kind() const { return m_Arguments.value(1); }
    QString What() const { return m_Arguments.value(2); }
    int Count() const { return m_Arguments.value(3).toInt(); }
    bool AreComplete() const { return m_Arguments.size() == 4 && Count() > 0; }

private:
    QStringList const m_Arguments = QCoreApplication::arguments();
};
