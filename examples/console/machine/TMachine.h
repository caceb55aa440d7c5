#pragma once

#include "IPositionSource.h"
#include "LightBarScale.h"
#include "TBoom.h"
#include "TCoverageMap.h"

#include <QObject>
#include <QPolygonF>

#include <array>
#include <memory>

/// The tractor with its sprayer, as all modules see it: where it is, what is switched on, what is in the tank
/// and what has been covered.
class TMachine : public QObject
{
    Q_OBJECT

public:
    static constexpr double StandardTankSize = 3000.0; ///< litres
    static constexpr double SmallestTankSize = 100.0;
    static constexpr double LargestTankSize = 12000.0;
    static constexpr double LowTankShare = 0.15;      ///< below this share, the tank is nearly empty
    static constexpr double StandardNozzleFlow = 3.0; ///< litres per minute
    static constexpr double SmallestNozzleFlow = 0.2;
    static constexpr double LargestNozzleFlow = 6.0;
    static constexpr double NozzleSpacing = 0.5; ///< m
    static constexpr int SmallestRate = 50;      ///< litres per hectare
    static constexpr int LargestRate = 400;
    static constexpr int RateStep = 10;
    static constexpr double SmallestFlowFactor = 0.7;
    static constexpr double LargestFlowFactor = 1.3;
    static constexpr double LineShiftStep = 0.05;   ///< m
    static constexpr double LargestLineShift = 3.0; ///< m, to either side

    explicit TMachine(std::unique_ptr<IPositionSource> source);
    ~TMachine() override;

    /// Lets the source begin.
    void Start();

    IPositionSource const& Source() const { return *m_Source; }
    TFix const& Fix() const { return m_Fix; }
    TField const& Field() const { return m_Field; }
    TCoverageMap const& Coverage() const { return m_Coverage; }

    /// Of the antenna, in metres east and south of the plane's origin; the last one known.
    QPointF Position() const { return m_Position; }
    /// The last one known; a machine that stands keeps it.
    double Heading() const { return m_Heading; }
    /// Metres to the right of the nearest line, seen along the drive; 0 without lines.
    double OffLine() const;
    /// The number of the nearest line, 0 without lines.
    int NearestLine() const;
    /// Metres from one line to the next.
    double LineSpacing() const;
    /// A point on line 0, with the lines where they have been shifted to.
    QPointF LineOrigin() const;
    /// How far all lines were shifted from where the field has them: metres to the right, seen along the
    /// lines.
    double LineShift() const { return m_LineShift; }
    /// By \a metres to the right, seen along the drive, and no farther away than LargestLineShift. Nothing
    /// without lines, and for what is no number.
    void ShiftLines(double metres);
    /// Whether ShiftLines() would move them at all.
    bool CanShiftLines(double metres) const;
    /// Back to where the field has them.
    void CentreLines();
    /// Metres that one light of the light bar stands for, as an index into LightBarScale::Steps.
    int LightBarStep() const { return m_LightBarStep; }
    /// Held to the range.
    void SetLightBarStep(int step);

    /// Whether what is sprayed is also noted in Coverage() and AreaDone(). True at first.
    bool IsRecording() const { return m_IsRecording; }
    void SetRecording(bool on);
    /// Hectares.
    double AreaDone() const { return m_AreaDone; }

    /// \name The sprayer
    /// @{
    bool IsMasterOn() const { return m_IsMasterOn; }
    void SetMasterOn(bool on);
    /// False for a number outside 0 to SectionCount - 1.
    bool IsSectionOn(int section) const;
    void SetSectionOn(int section, bool on);
    /// What really flows: switched on, moving, inside the field, and on ground not yet covered.
    bool IsFlowing(int section) const;
    TBoom const& Boom() const { return m_Boom; }
    /// Metres, held to the range of TBoom. What is covered already stays as it is.
    void SetSectionWidth(int section, double metres);
    double TankLitres() const { return m_TankLitres; }
    /// Litres, held to the range. What no longer fits in runs over.
    double TankSize() const { return m_TankSize; }
    void SetTankSize(double litres);
    double LowTank() const { return m_TankSize * LowTankShare; }
    bool IsTankLow() const { return m_TankLitres < LowTank(); }
    void FillTank();
    /// Lets everything out.
    void DrainTank();
    /// Litres per hectare, held to the range.
    int Rate() const { return m_Rate; }
    void SetRate(int litresPerHectare);
    /// What the nozzles give for each litre that the meter counts, held to the range.
    double FlowFactor() const { return m_FlowFactor; }
    void SetFlowFactor(double factor);
    /// Litres per minute that one nozzle gives at most, by the meter; held to the range.
    double NozzleFlow() const { return m_NozzleFlow; }
    void SetNozzleFlow(double litresPerMinute);
    /// Litres per hectare that really go out by the meter: less than Rate() where the machine drives faster
    /// than the nozzles can follow.
    double AppliedRate() const;
    /// Litres per minute that flow now.
    double FlowPerMinute() const;
    /// @}

Q_SIGNALS:
    /// The source has spoken: position, area, tank and flow may have changed.
    void Moved();
    /// \a ground was covered just now, and recorded, before Moved().
    void Covered(QPolygonF const& ground);
    /// A switch, the rate, the tank, the nozzles, the boom, the lines or the light bar were changed by
    /// hand.
    void SwitchesChanged();
    /// The tank has become nearly empty. Once for each filling.
    void TankBecameLow();

private:
    void TakeFix(TFix const& fix);
    void EnsurePlane();
    void EnsureLines();
    void Work(TBoom::TEnds const& ends, double distance);
    void Cover(QPolygonF const& ground, double squareMetres);
    bool MayFlow(int section, TBoom::TEnds const& ends) const;
    QPointF AcrossLines() const;
    double SignedDistance(int* line) const;
    bool IsDrivenTheOtherWay() const;
    double LineShiftAfter(double metres) const;
    void SetLineShift(double metres);
    void StopFlow();
    void SetTank(double litres);

    std::unique_ptr<IPositionSource> m_Source;
    TLocalPlane m_Plane;
    TField m_Field;
    TFix m_Fix;
    QPointF m_Position;
    double m_Heading = 0.0;
    TBoom m_Boom;
    bool m_HasEnds = false;
    TBoom::TEnds m_Ends;
    TCoverageMap m_Coverage;
    double m_AreaDone = 0.0;
    double m_LineShift = 0.0;
    int m_LightBarStep = LightBarScale::StandardStep;
    bool m_IsRecording = true;
    bool m_IsMasterOn = true;
    std::array<bool, TBoom::SectionCount> m_IsSectionOn;
    std::array<bool, TBoom::SectionCount> m_IsFlowing;
    double m_TankSize = StandardTankSize;
    double m_TankLitres = StandardTankSize * 0.8;
    double m_NozzleFlow = StandardNozzleFlow;
    int m_Rate = 200;
    double m_FlowFactor = 1.0;
};
