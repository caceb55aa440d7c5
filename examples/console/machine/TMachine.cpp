#include "TMachine.h"

#include <QtMath>

#include <cmath>

namespace
{
constexpr double SquareMetresPerHectare = 10000.0;
constexpr double SecondsPerMinute = 60.0;
constexpr double MillimetresPerMetre = 1000.0;
// Below this speed the direction of the movement is noise, and the pump rests.
constexpr double StandingSpeed = 0.3;
// A machine does not move as far between two positions; a receiver that finds itself anew does.
constexpr double LongestStep = 25.0;
// How far ahead of the boom the ground is looked at, so that a section does not stop on its own work.
constexpr double LookAhead = 1.0;
constexpr double FullTurn = 360.0;
constexpr double QuarterTurn = 90.0;

QPointF Direction(double heading)
{
    double const radians = qDegreesToRadians(heading);
    return {std::sin(radians), -std::cos(radians)};
}

// With one that is not, everything that follows from it would have no value any more.
bool IsSensible(TFix const& fix)
{
    return std::isfinite(fix.latitude) && std::isfinite(fix.longitude) && std::isfinite(fix.heading) &&
           std::isfinite(fix.speed);
}
} // namespace

TMachine::TMachine(std::unique_ptr<IPositionSource> source)
    : m_Source(std::move(source))
    , m_Plane(m_Source->KnownPlane())
    , m_Field(m_Source->KnownField())
{
    m_IsSectionOn.fill(true);
    m_IsFlowing.fill(false);
    connect(m_Source.get(), &IPositionSource::FixChanged, this, &TMachine::TakeFix);
}

TMachine::~TMachine() = default;

void TMachine::Start()
{
    m_Source->Start();
}

void TMachine::TakeFix(TFix const& fix)
{
    m_Fix = IsSensible(fix) ? fix : TFix();
    if (!m_Fix.IsValid())
    {
        StopFlow();
        Q_EMIT Moved();
        return;
    }
    EnsurePlane();
    QPointF const before = m_Position;
    m_Position = m_Plane.FromDegrees(fix.latitude, fix.longitude);
    if (fix.speed > StandingSpeed)
        m_Heading = fix.heading;
    EnsureLines();
    TBoom::TEnds const ends = m_Boom.EndsAt(m_Position, m_Heading);
    double const distance = std::hypot(m_Position.x() - before.x(), m_Position.y() - before.y());
    if (m_HasEnds && distance < LongestStep)
        Work(ends, distance);
    m_Ends = ends;
    m_HasEnds = true;
    Q_EMIT Moved();
}

void TMachine::StopFlow()
{
    m_IsFlowing.fill(false);
    m_HasEnds = false;
}

void TMachine::EnsurePlane()
{
    if (!m_Plane.IsValid())
        m_Plane = TLocalPlane(m_Fix.latitude, m_Fix.longitude);
}

// A source without a field gets its lines from the first drive.
void TMachine::EnsureLines()
{
    if (m_Field.hasLines || m_Fix.speed <= StandingSpeed)
        return;
    m_Field.hasLines = true;
    m_Field.lineOrigin = m_Position;
    m_Field.lineHeading = m_Heading;
}

void TMachine::Work(TBoom::TEnds const& ends, double distance)
{
    for (int section = 0; section < TBoom::SectionCount; ++section)
        m_IsFlowing[static_cast<size_t>(section)] = MayFlow(section, ends);
    // Neighbours that flow cover one piece of ground together.
    for (size_t left = 0; left < m_IsFlowing.size(); ++left)
    {
        if (!m_IsFlowing[left])
            continue;
        size_t right = left;
        while (right < m_IsFlowing.size() && m_IsFlowing[right])
            ++right;
        double const width = m_Boom.EdgeOf(static_cast<int>(right)) - m_Boom.EdgeOf(static_cast<int>(left));
        Cover(QVector<QPointF>{m_Ends[left], m_Ends[right], ends[right], ends[left]}, width * distance);
        left = right;
    }
}

void TMachine::Cover(QPolygonF const& ground, double squareMetres)
{
    double const area = squareMetres / SquareMetresPerHectare;
    if (m_IsRecording)
    {
        m_Coverage.Add(ground);
        m_AreaDone += area;
        Q_EMIT Covered(ground);
    }
    SetTank(m_TankLitres - area * AppliedRate() * m_FlowFactor);
}

bool TMachine::MayFlow(int section, TBoom::TEnds const& ends) const
{
    auto const i = static_cast<size_t>(section);
    if (!m_IsMasterOn || !m_IsSectionOn[i] || m_TankLitres <= 0.0 || m_Fix.speed <= StandingSpeed)
        return false;
    QPointF const middle = (ends[i] + ends[i + 1]) / 2.0;
    if (!m_Field.workArea.isEmpty() && !m_Field.workArea.containsPoint(middle, Qt::OddEvenFill))
        return false;
    return !m_Coverage.IsCovered(middle + Direction(m_Heading) * LookAhead);
}

QPointF TMachine::AcrossLines() const
{
    return Direction(m_Field.lineHeading + QuarterTurn);
}

QPointF TMachine::LineOrigin() const
{
    return m_Field.lineOrigin + AcrossLines() * m_LineShift;
}

double TMachine::SignedDistance(int* line) const
{
    double const metres = QPointF::dotProduct(m_Position - LineOrigin(), AcrossLines());
    *line = qRound(metres / LineSpacing());
    return metres - *line * LineSpacing();
}

double TMachine::LineSpacing() const
{
    return m_Field.lineSpacing > 0.0 ? m_Field.lineSpacing : m_Boom.Width();
}

double TMachine::OffLine() const
{
    if (!m_Field.hasLines)
        return 0.0;
    int line = 0;
    double const distance = SignedDistance(&line);
    return IsDrivenTheOtherWay() ? -distance : distance;
}

// Right is left then.
bool TMachine::IsDrivenTheOtherWay() const
{
    return qAbs(std::remainder(m_Heading - m_Field.lineHeading, FullTurn)) > QuarterTurn;
}

int TMachine::NearestLine() const
{
    int line = 0;
    if (m_Field.hasLines)
        SignedDistance(&line);
    return line;
}

void TMachine::ShiftLines(double metres)
{
    if (CanShiftLines(metres))
        SetLineShift(LineShiftAfter(metres));
}

bool TMachine::CanShiftLines(double metres) const
{
    return m_Field.hasLines && !std::isnan(metres) && LineShiftAfter(metres) != m_LineShift;
}

// In whole millimetres: steps to and fro end where they began.
double TMachine::LineShiftAfter(double metres) const
{
    double const wanted = m_LineShift + (IsDrivenTheOtherWay() ? -metres : metres);
    double const held = qBound(-LargestLineShift, wanted, LargestLineShift);
    return std::round(held * MillimetresPerMetre) / MillimetresPerMetre;
}

void TMachine::CentreLines()
{
    SetLineShift(0.0);
}

void TMachine::SetLineShift(double metres)
{
    if (metres == m_LineShift)
        return;
    m_LineShift = metres;
    Q_EMIT SwitchesChanged();
}

void TMachine::SetLightBarStep(int step)
{
    int const held = qBound(0, step, LightBarScale::StepCount - 1);
    if (held == m_LightBarStep)
        return;
    m_LightBarStep = held;
    Q_EMIT SwitchesChanged();
}

void TMachine::SetRecording(bool on)
{
    if (on == m_IsRecording)
        return;
    m_IsRecording = on;
    Q_EMIT SwitchesChanged();
}

void TMachine::SetMasterOn(bool on)
{
    if (on == m_IsMasterOn)
        return;
    m_IsMasterOn = on;
    Q_EMIT SwitchesChanged();
}

bool TMachine::IsSectionOn(int section) const
{
    return section >= 0 && section < TBoom::SectionCount && m_IsSectionOn[static_cast<size_t>(section)];
}

void TMachine::SetSectionOn(int section, bool on)
{
    if (section < 0 || section >= TBoom::SectionCount || IsSectionOn(section) == on)
        return;
    m_IsSectionOn[static_cast<size_t>(section)] = on;
    Q_EMIT SwitchesChanged();
}

bool TMachine::IsFlowing(int section) const
{
    return section >= 0 && section < TBoom::SectionCount && m_IsFlowing[static_cast<size_t>(section)];
}

void TMachine::FillTank()
{
    SetTank(m_TankSize);
    Q_EMIT SwitchesChanged();
}

void TMachine::DrainTank()
{
    SetTank(0.0);
    Q_EMIT SwitchesChanged();
}

void TMachine::SetTank(double litres)
{
    bool const wasLow = IsTankLow();
    m_TankLitres = qBound(0.0, litres, m_TankSize);
    if (IsTankLow() && !wasLow)
        Q_EMIT TankBecameLow();
}

void TMachine::SetTankSize(double litres)
{
    if (std::isnan(litres))
        return;
    double const size = qBound(SmallestTankSize, litres, LargestTankSize);
    if (size == m_TankSize)
        return;
    bool const wasLow = IsTankLow();
    m_TankSize = size;
    m_TankLitres = qMin(m_TankLitres, size);
    if (IsTankLow() && !wasLow)
        Q_EMIT TankBecameLow();
    Q_EMIT SwitchesChanged();
}

void TMachine::SetNozzleFlow(double litresPerMinute)
{
    if (std::isnan(litresPerMinute))
        return;
    double const flow = qBound(SmallestNozzleFlow, litresPerMinute, LargestNozzleFlow);
    if (flow == m_NozzleFlow)
        return;
    m_NozzleFlow = flow;
    Q_EMIT SwitchesChanged();
}

// The next piece of ground begins where the boom ends now.
void TMachine::SetSectionWidth(int section, double metres)
{
    if (!m_Boom.SetSectionWidth(section, metres))
        return;
    m_Ends = m_Boom.EndsAt(m_Position, m_Heading);
    Q_EMIT SwitchesChanged();
}

void TMachine::SetFlowFactor(double factor)
{
    if (!std::isfinite(factor))
        return;
    m_FlowFactor = qBound(SmallestFlowFactor, factor, LargestFlowFactor);
}

void TMachine::SetRate(int litresPerHectare)
{
    int const rate = qBound(SmallestRate, litresPerHectare, LargestRate);
    if (rate == m_Rate)
        return;
    m_Rate = rate;
    Q_EMIT SwitchesChanged();
}

double TMachine::FlowPerMinute() const
{
    double width = 0.0;
    for (int section = 0; section < TBoom::SectionCount; ++section)
        width += IsFlowing(section) ? m_Boom.SectionWidth(section) : 0.0;
    double const squareMetres = width * m_Fix.speed * SecondsPerMinute;
    return squareMetres / SquareMetresPerHectare * AppliedRate() * m_FlowFactor;
}

double TMachine::AppliedRate() const
{
    double const squareMetres = NozzleSpacing * m_Fix.speed * SecondsPerMinute;
    return squareMetres > 0.0 ? qMin(double(m_Rate), m_NozzleFlow * SquareMetresPerHectare / squareMetres)
                              : m_Rate;
}
