#pragma once

#include "TNumberPadStage.h"

#include <QRandomGenerator>

/// Touches the keys of a pad at random, and now and then sets what an owner or the operator may set.
class TNumberPadPlayer
{
public:
    /// Of so many touches one is something else than a key.
    static constexpr int KeysPerOther = 50;
    /// What a value that was accepted may be out of the bounds by.
    static constexpr double Tolerance = 0.00001;

    /// Plays on \a stage, which must live as long. Nothing outside of \a low and \a high may be emitted.
    TNumberPadPlayer(TNumberPadStage& stage, double low, double high, quint32 seed)
        : m_Random(seed)
        , m_Stage(stage)
        , m_Low(low)
        , m_High(high)
    {
        SetBounds();
    }
    virtual ~TNumberPadPlayer() = default;

    /// What is wrong after so many touches; empty for nothing.
    QString Play(int steps)
    {
        for (int step = 0; step < steps; ++step)
        {
            QString const fault = Step();
            if (!fault.isEmpty())
                return QStringLiteral("step %1: %2").arg(step).arg(fault);
        }
        return {};
    }
    int Accepted() const { return m_Accepted; }
    int Refused() const { return m_Refused; }

protected:
    int Random(int below) { return m_Random.bounded(below); }
    /// One of the settings that all pads have.
    virtual void DoSomethingElse()
    {
        switch (Random(7))
        {
        case 0:
            m_Stage.Show(m_Low + m_Random.generateDouble() * (m_High - m_Low));
            break;
        case 1:
            m_Stage.pad->SetValueDbl(Random(2) == 0 ? qQNaN() : 1e300);
            break;
        case 2:
            m_Stage.pad->SetNumberOfDecimalPlaces(Random(10) - 1);
            break;
        case 3:
            m_Stage.pad->SetInlineOptions(Random(2) == 0, Random(2) == 0);
            break;
        case 4:
            SetBounds();
            break;
        case 5:
            m_Stage.UseClock(Random(2) == 0);
            m_Stage.UseDateFormat(Random(7));
            break;
        default:
            m_Stage.UseLocale(Random(2) == 0 ? QStringLiteral("de_DE") : QStringLiteral("en_US"));
            break;
        }
    }

private:
    QString Step()
    {
        if (Random(KeysPerOther) == 0)
            DoSomethingElse();
        else
            m_Stage.Key(Random(TNumberPadStage::Tick + 1))->click();
        if (!m_Stage.TakeMessage().isEmpty())
            ++m_Refused;
        return Fault();
    }
    void SetBounds()
    {
        bool const isSwapped = Random(4) == 0;
        m_Stage.pad->SetBounds(isSwapped ? m_High : m_Low, isSwapped ? m_Low : m_High);
    }
    QString Fault()
    {
        for (double const value : qAsConst(m_Stage.values))
        {
            if (!(value > m_Low - Tolerance && value < m_High + Tolerance))
                return QStringLiteral("emitted %1 after \"%2\"").arg(value).arg(m_Stage.Shown());
        }
        m_Accepted += m_Stage.values.size() + m_Stage.addresses.size();
        m_Stage.values.clear();
        m_Stage.addresses.clear();
        m_Stage.texts.clear();
        m_Stage.log.clear();
        if (m_Stage.Message())
            return QStringLiteral("a message stays up");
        return m_Stage.pad->isVisible() ? QString() : QStringLiteral("the pad is gone");
    }

    QRandomGenerator m_Random;
    TNumberPadStage& m_Stage;
    double m_Low;
    double m_High;
    int m_Accepted = 0;
    int m_Refused = 0;
};
