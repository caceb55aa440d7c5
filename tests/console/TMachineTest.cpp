#include "TMachine.h"

#include "TestCase.h"
#include "TestSource.h"

#include <QSignalSpy>

namespace
{
/// A machine that a test drives.
struct TDrive
{
    explicit TDrive(TField const& field = {})
        : source(new TTestSource)
    {
        source->m_Field = field;
        machine = std::make_unique<TMachine>(std::unique_ptr<IPositionSource>(source));
    }

    /// North from (0, 0), a metre at a time.
    void North(int metres)
    {
        for (int i = 0; i <= metres; ++i)
            source->Say({0.0, double(-i)}, 0.0);
    }
    bool IsCovered(double east, double south) const { return machine->Coverage().IsCovered({east, south}); }

    TTestSource* source;
    std::unique_ptr<TMachine> machine;
};

constexpr double BoomWidth = TBoom::SectionCount * TBoom::StandardSectionWidth;
constexpr double LeftOfSection0 = -BoomWidth / 2.0 + TBoom::StandardSectionWidth / 2.0;
} // namespace

class TMachineTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theDriveCoversTheWidthOfTheBoom()
    {
        TDrive drive;
        drive.North(20);
        QVERIFY(drive.IsCovered(LeftOfSection0, -5.0));
        QVERIFY(drive.IsCovered(-LeftOfSection0, -5.0));
        QVERIFY(!drive.IsCovered(BoomWidth / 2.0 + 1.0, -5.0));
        // 20 m times the boom, and the tank paid for it.
        QVERIFY(qAbs(drive.machine->AreaDone() - 20.0 * BoomWidth / 10000.0) < 1e-6);
        double const used = TMachine::StandardTankSize * 0.8 - drive.machine->TankLitres();
        QVERIFY(qAbs(used - drive.machine->AreaDone() * drive.machine->Rate()) < 1e-6);
    }

    void aSectionThatIsOffCoversNothing()
    {
        TDrive drive;
        drive.machine->SetSectionOn(0, false);
        drive.North(20);
        QVERIFY(!drive.IsCovered(LeftOfSection0, -5.0));
        QVERIFY(drive.IsCovered(LeftOfSection0 + TBoom::StandardSectionWidth, -5.0));
        QVERIFY(!drive.machine->IsFlowing(0));
        QVERIFY(drive.machine->IsFlowing(1));
    }

    void theMasterSwitchStopsAll()
    {
        TDrive drive;
        QSignalSpy switched(drive.machine.get(), &TMachine::SwitchesChanged);
        drive.machine->SetMasterOn(false);
        drive.machine->SetMasterOn(false);
        QCOMPARE(switched.count(), 1);
        drive.North(20);
        QCOMPARE(drive.machine->AreaDone(), 0.0);
        QCOMPARE(drive.machine->FlowPerMinute(), 0.0);
    }

    void coveredGroundIsNotSprayedAgain()
    {
        TDrive drive;
        drive.North(20);
        double const once = drive.machine->AreaDone();
        drive.source->SayNothing();
        drive.North(15);
        QCOMPARE(drive.machine->AreaDone(), once);
        QVERIFY(!drive.machine->IsFlowing(3));
    }

    void outsideOfTheWorkAreaNothingFlows()
    {
        TField field;
        field.workArea = QPolygonF(QRectF(-100.0, -200.0, 200.0, 190.0));
        TDrive drive(field);
        drive.North(30);
        QVERIFY(!drive.IsCovered(0.5, -8.0));
        QVERIFY(drive.IsCovered(0.5, -15.0));
    }

    void anEmptyTankStopsTheFlow()
    {
        TDrive drive;
        drive.machine->SetRate(TMachine::LargestRate);
        for (int i = 0; drive.machine->TankLitres() > 0.0 && i < 20000; ++i)
            drive.source->Say({0.0, -10.0 * i}, 0.0);
        QCOMPARE(drive.machine->TankLitres(), 0.0);
        double const area = drive.machine->AreaDone();
        drive.North(20);
        QCOMPARE(drive.machine->AreaDone(), area);
        drive.machine->FillTank();
        QCOMPARE(drive.machine->TankLitres(), TMachine::StandardTankSize);
    }

    void aLostFixStopsTheFlowAndLeavesNoStripe()
    {
        TDrive drive;
        drive.North(10);
        QVERIFY(drive.machine->IsFlowing(3));
        drive.source->SayNothing();
        QVERIFY(!drive.machine->IsFlowing(3));
        QVERIFY(!drive.machine->Fix().IsValid());
        drive.source->Say({0.0, -25.0}, 0.0);
        drive.source->Say({0.0, -26.0}, 0.0);
        QVERIFY(!drive.IsCovered(0.5, -15.0));
        QVERIFY(drive.IsCovered(0.5, -23.0));
    }

    void aJumpLeavesNoStripe()
    {
        TDrive drive;
        drive.source->Say({0.0, 0.0}, 0.0);
        drive.source->Say({0.0, -100.0}, 0.0);
        drive.source->Say({0.0, -101.0}, 0.0);
        QVERIFY(!drive.IsCovered(0.5, -50.0));
        QVERIFY(drive.IsCovered(0.5, -98.0));
    }

    void whatIsSensedWithoutSenseIsNoFix_data()
    {
        QTest::addColumn<TFix>("fix");
        TFix sane;
        sane.quality = FIX_RTK;
        TFix fix = sane;
        fix.latitude = qQNaN();
        QTest::newRow("no latitude") << fix;
        fix = sane;
        fix.longitude = qInf();
        QTest::newRow("an endless longitude") << fix;
        fix = sane;
        fix.heading = qQNaN();
        QTest::newRow("no heading") << fix;
        fix = sane;
        fix.speed = qQNaN();
        QTest::newRow("no speed") << fix;
    }

    void whatIsSensedWithoutSenseIsNoFix()
    {
        QFETCH(TFix, fix);
        TDrive drive;
        drive.North(10);
        Q_EMIT drive.source->FixChanged(fix);
        QVERIFY(!drive.machine->Fix().IsValid());
        QVERIFY(!drive.machine->IsFlowing(3));
        QVERIFY(qAbs(drive.machine->Position().y() + 10.0) < 1e-6);
        QCOMPARE(drive.machine->Heading(), 0.0);
        drive.source->Say({0.0, -11.0}, 0.0);
        QVERIFY(drive.machine->Fix().IsValid());
    }

    // The record

    void withoutTheRecordTheGroundStaysOpenAndTheTankPays()
    {
        TDrive drive;
        QSignalSpy covered(drive.machine.get(), &TMachine::Covered);
        QSignalSpy switched(drive.machine.get(), &TMachine::SwitchesChanged);
        QVERIFY(drive.machine->IsRecording());
        drive.machine->SetRecording(false);
        drive.machine->SetRecording(false);
        QCOMPARE(switched.count(), 1);
        drive.North(20);
        QVERIFY(drive.machine->IsFlowing(3));
        QVERIFY(!drive.IsCovered(0.5, -5.0));
        QCOMPARE(drive.machine->AreaDone(), 0.0);
        QCOMPARE(covered.count(), 0);
        double const used = TMachine::StandardTankSize * 0.8 - drive.machine->TankLitres();
        QVERIFY(qAbs(used - 20.0 * BoomWidth / 10000.0 * drive.machine->Rate()) < 1e-6);
        drive.machine->SetRecording(true);
        drive.source->Say({0.0, -21.0}, 0.0);
        QVERIFY(drive.machine->AreaDone() > 0.0);
        QVERIFY(covered.count() > 0);
    }

    // The lines

    void linesShiftAsTheDriverSeesThem_data()
    {
        QTest::addColumn<double>("heading");
        QTest::addColumn<double>("shift");
        QTest::newRow("driven along") << 0.0 << 0.1;
        QTest::newRow("driven back") << 180.0 << -0.1;
    }

    void linesShiftAsTheDriverSeesThem()
    {
        QFETCH(double, heading);
        QFETCH(double, shift);
        TField field;
        field.hasLines = true;
        TDrive drive(field);
        drive.source->Say({0.0, 0.0}, heading);
        QSignalSpy switched(drive.machine.get(), &TMachine::SwitchesChanged);
        drive.machine->ShiftLines(2.0 * TMachine::LineShiftStep);
        QCOMPARE(switched.count(), 1);
        QCOMPARE(drive.machine->LineShift(), shift);
        QCOMPARE(drive.machine->LineOrigin(), QPointF(shift, 0.0));
        // The line went to the right, and so the machine is to its left.
        QVERIFY(qAbs(drive.machine->OffLine() + 0.1) < 1e-6);
        drive.machine->CentreLines();
        drive.machine->CentreLines();
        QCOMPARE(switched.count(), 2);
        QVERIFY(qAbs(drive.machine->OffLine()) < 1e-6);
    }

    void manyStepsToAndFroEndWhereTheyBegan()
    {
        TField field;
        field.hasLines = true;
        TDrive drive(field);
        for (int i = 0; i < 40; ++i)
            drive.machine->ShiftLines(TMachine::LineShiftStep);
        QCOMPARE(drive.machine->LineShift(), 2.0);
        for (int i = 0; i < 40; ++i)
            drive.machine->ShiftLines(-TMachine::LineShiftStep);
        QVERIFY(drive.machine->LineShift() == 0.0);
    }

    void linesAreNotShiftedOutOfReason()
    {
        TField field;
        field.hasLines = true;
        TDrive drive(field);
        drive.machine->ShiftLines(qQNaN());
        QCOMPARE(drive.machine->LineShift(), 0.0);
        drive.machine->ShiftLines(qInf());
        QCOMPARE(drive.machine->LineShift(), TMachine::LargestLineShift);
        drive.machine->ShiftLines(-1e300);
        QCOMPARE(drive.machine->LineShift(), -TMachine::LargestLineShift);
    }

    void atTheEndLinesShiftOnlyBack_data()
    {
        QTest::addColumn<double>("heading");
        QTest::addColumn<double>("way");
        for (double const heading : {0.0, 180.0})
        {
            for (double const way : {-1.0, 1.0})
                QTest::addRow("driven to %g, shifted by %g", heading, way) << heading << way;
        }
    }

    void atTheEndLinesShiftOnlyBack()
    {
        QFETCH(double, heading);
        QFETCH(double, way);
        TField field;
        field.hasLines = true;
        TDrive drive(field);
        drive.source->Say({0.0, 0.0}, heading);
        double const step = way * TMachine::LineShiftStep;
        QVERIFY(drive.machine->CanShiftLines(step));
        QVERIFY(drive.machine->CanShiftLines(-step));
        drive.machine->ShiftLines(way * TMachine::LargestLineShift);
        QVERIFY(!drive.machine->CanShiftLines(step));
        QVERIFY(drive.machine->CanShiftLines(-step));
        // Turned round, left is right.
        drive.source->Say({0.0, 0.0}, heading + 180.0);
        QVERIFY(drive.machine->CanShiftLines(step));
        QVERIFY(!drive.machine->CanShiftLines(-step));
    }

    void theStepOfTheLightBarKeepsToItsRange()
    {
        TDrive drive;
        QSignalSpy const switched(drive.machine.get(), &TMachine::SwitchesChanged);
        drive.machine->SetLightBarStep(LightBarScale::StandardStep);
        QCOMPARE(switched.count(), 0);
        drive.machine->SetLightBarStep(1000);
        QCOMPARE(drive.machine->LightBarStep(), LightBarScale::StepCount - 1);
        drive.machine->SetLightBarStep(-1000);
        QCOMPARE(drive.machine->LightBarStep(), 0);
        QCOMPARE(switched.count(), 2);
    }

    void withoutLinesThereIsNothingToShift()
    {
        TDrive drive;
        QVERIFY(!drive.machine->CanShiftLines(TMachine::LineShiftStep));
        drive.machine->ShiftLines(1.0);
        QCOMPARE(drive.machine->LineShift(), 0.0);
    }

    void aMachineThatStandsKeepsItsHeading()
    {
        TDrive drive;
        drive.source->Say({0.0, 0.0}, 45.0);
        drive.source->Say({0.0, 0.0}, 210.0, 0.1);
        QCOMPARE(drive.machine->Heading(), 45.0);
    }

    void besideTheLineIsToldAlongTheDrive_data()
    {
        QTest::addColumn<double>("east");
        QTest::addColumn<double>("heading");
        QTest::addColumn<double>("offset");
        QTest::addColumn<int>("line");
        QTest::newRow("right of the first line") << 0.4 << 0.0 << 0.4 << 0;
        QTest::newRow("the same driven back") << 0.4 << 180.0 << -0.4 << 0;
        QTest::newRow("left of the third line") << 2 * BoomWidth - 0.3 << 0.0 << -0.3 << 2;
        QTest::newRow("west of the origin") << -BoomWidth + 0.2 << 0.0 << 0.2 << -1;
    }

    void besideTheLineIsToldAlongTheDrive()
    {
        QFETCH(double, east);
        QFETCH(double, heading);
        QFETCH(double, offset);
        QFETCH(int, line);
        TField field;
        field.hasLines = true;
        TDrive drive(field);
        drive.source->Say({east, 0.0}, heading);
        QVERIFY(qAbs(drive.machine->OffLine() - offset) < 1e-6);
        QCOMPARE(drive.machine->NearestLine(), line);
    }

    void withoutAFieldTheFirstDriveLaysTheLines()
    {
        TDrive drive;
        drive.source->Say({5.0, 5.0}, 90.0, 0.0);
        QVERIFY(!drive.machine->Field().hasLines);
        drive.source->Say({5.0, 5.0}, 90.0);
        QVERIFY(drive.machine->Field().hasLines);
        drive.source->Say({15.0, 6.0}, 90.0);
        QVERIFY(qAbs(drive.machine->OffLine() - 1.0) < 1e-6);
    }

    void rateAndSectionsAreHeldToTheirRanges()
    {
        TDrive drive;
        drive.machine->SetRate(-5);
        QCOMPARE(drive.machine->Rate(), TMachine::SmallestRate);
        drive.machine->SetRate(1000000);
        QCOMPARE(drive.machine->Rate(), TMachine::LargestRate);
        QSignalSpy switched(drive.machine.get(), &TMachine::SwitchesChanged);
        drive.machine->SetSectionOn(-1, false);
        drive.machine->SetSectionOn(TBoom::SectionCount, false);
        QCOMPARE(switched.count(), 0);
        QVERIFY(!drive.machine->IsSectionOn(-1));
        QVERIFY(!drive.machine->IsFlowing(TBoom::SectionCount));
    }

    void aTankThatBecomesLowTellsOnceForEachFilling()
    {
        TDrive drive;
        QSignalSpy low(drive.machine.get(), &TMachine::TankBecameLow);
        QVERIFY(!drive.machine->IsTankLow());
        drive.machine->DrainTank();
        QCOMPARE(drive.machine->TankLitres(), 0.0);
        QVERIFY(drive.machine->IsTankLow());
        QCOMPARE(low.count(), 1);
        drive.machine->DrainTank();
        QCOMPARE(low.count(), 1);
        drive.machine->FillTank();
        drive.machine->DrainTank();
        QCOMPARE(low.count(), 2);
    }

    void aMeterThatWasPutRightPaysTheTrueAmount()
    {
        TDrive drive;
        drive.machine->SetFlowFactor(1.2);
        drive.North(20);
        double const used = TMachine::StandardTankSize * 0.8 - drive.machine->TankLitres();
        QVERIFY(qAbs(used - drive.machine->AreaDone() * drive.machine->Rate() * 1.2) < 1e-6);
    }

    void aCorrectionStaysWithinReason()
    {
        TDrive drive;
        drive.machine->SetFlowFactor(5.0);
        QCOMPARE(drive.machine->FlowFactor(), TMachine::LargestFlowFactor);
        drive.machine->SetFlowFactor(-1.0);
        QCOMPARE(drive.machine->FlowFactor(), TMachine::SmallestFlowFactor);
        drive.machine->SetFlowFactor(qQNaN());
        QCOMPARE(drive.machine->FlowFactor(), TMachine::SmallestFlowFactor);
    }

    // How the sprayer is built

    void aNarrowSectionCoversAndCountsItsOwnWidth()
    {
        TDrive drive;
        for (int section = 0; section < TBoom::SectionCount; ++section)
            drive.machine->SetSectionWidth(section, section == 7 ? 6.0 : 2.0);
        QCOMPARE(drive.machine->Boom().Width(), 20.0);
        drive.machine->SetSectionOn(7, false);
        drive.North(20);
        // The last section begins 4 m to the right of the middle of 20 m.
        QVERIFY(drive.IsCovered(-9.5, -5.0));
        QVERIFY(!drive.IsCovered(-10.5, -5.0));
        QVERIFY(drive.IsCovered(3.5, -5.0));
        QVERIFY(!drive.IsCovered(4.5, -5.0));
        QVERIFY(qAbs(drive.machine->AreaDone() - 20.0 * 14.0 / 10000.0) < 1e-6);
        // 14 m at 3 m/s and 200 l/ha.
        QVERIFY(qAbs(drive.machine->FlowPerMinute() - 14.0 * 3.0 * 60.0 / 10000.0 * 200.0) < 1e-6);
    }

    void aWidthThatChangesOnTheWayLeavesNoWedge()
    {
        TDrive drive;
        drive.North(10);
        drive.machine->SetSectionWidth(0, 6.0);
        drive.source->Say({0.0, -11.0}, 0.0);
        drive.source->Say({0.0, -12.0}, 0.0);
        // 13.5 m on either side now, 12 m before; the boom runs 2.5 m behind the antenna.
        QVERIFY(!drive.IsCovered(-13.0, -7.0));
        QVERIFY(drive.IsCovered(-13.0, -7.8));
        QVERIFY(drive.IsCovered(-13.0, -9.0));
    }

    void theLinesLieAsFarApartAsTheBoomIsWide()
    {
        TField field;
        field.hasLines = true;
        TDrive drive(field);
        drive.source->Say({20.0, 0.0}, 0.0);
        QCOMPARE(drive.machine->NearestLine(), 1);
        for (int section = 0; section < TBoom::SectionCount; ++section)
            drive.machine->SetSectionWidth(section, 2.0);
        QCOMPARE(drive.machine->LineSpacing(), 16.0);
        QVERIFY(qAbs(drive.machine->OffLine() - 4.0) < 1e-6);
    }

    void tramlinesThatAreThereStayWhereTheyAre()
    {
        TField field;
        field.hasLines = true;
        field.lineSpacing = 24.0;
        TDrive drive(field);
        drive.machine->SetSectionWidth(0, 1.0);
        drive.source->Say({25.0, 0.0}, 0.0);
        QVERIFY(qAbs(drive.machine->OffLine() - 1.0) < 1e-6);
    }

    void whatNoLongerFitsIntoTheTankRunsOver()
    {
        TDrive drive;
        QSignalSpy changed(drive.machine.get(), &TMachine::SwitchesChanged);
        drive.machine->SetTankSize(1000.0);
        QCOMPARE(drive.machine->TankLitres(), 1000.0);
        QCOMPARE(changed.count(), 1);
        drive.machine->SetTankSize(5000.0);
        QCOMPARE(drive.machine->TankLitres(), 1000.0);
        drive.machine->FillTank();
        QCOMPARE(drive.machine->TankLitres(), 5000.0);
    }

    void theWarningGrowsWithTheTank()
    {
        TDrive drive;
        QSignalSpy low(drive.machine.get(), &TMachine::TankBecameLow);
        QCOMPARE(drive.machine->LowTank(), 450.0);
        drive.machine->SetTankSize(1000.0);
        drive.machine->SetTankSize(4000.0);
        QVERIFY(!drive.machine->IsTankLow());
        QCOMPARE(low.count(), 0);
        drive.machine->SetTankSize(10000.0);
        QVERIFY(drive.machine->IsTankLow());
        QCOMPARE(low.count(), 1);
    }

    void nozzlesGiveNoMoreThanTheyCan()
    {
        TDrive drive;
        drive.machine->SetNozzleFlow(0.9);
        drive.North(20);
        // 0.9 l/min of a nozzle for every half metre, at 3 m/s.
        QVERIFY(qAbs(drive.machine->AppliedRate() - 100.0) < 1e-6);
        double const used = TMachine::StandardTankSize * 0.8 - drive.machine->TankLitres();
        QVERIFY(qAbs(used - drive.machine->AreaDone() * 100.0) < 1e-6);
        QVERIFY(qAbs(drive.machine->FlowPerMinute() - 0.9 * 48) < 1e-6);
        drive.machine->SetNozzleFlow(3.0);
        QCOMPARE(drive.machine->AppliedRate(), 200.0);
    }

    void aMachineThatStandsHasTheRateThatWasAskedFor()
    {
        TDrive drive;
        QCOMPARE(drive.machine->AppliedRate(), 200.0);
    }

    void senselessMeasuresAreHeldToReason_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<double>("tank");
        QTest::addColumn<double>("nozzle");
        QTest::addColumn<double>("section");
        QTest::newRow("nothing") << 0.0 << TMachine::SmallestTankSize << TMachine::SmallestNozzleFlow
                                 << TBoom::SmallestSectionWidth;
        QTest::newRow("negative") << -1e300 << TMachine::SmallestTankSize << TMachine::SmallestNozzleFlow
                                  << TBoom::SmallestSectionWidth;
        QTest::newRow("endless") << qInf() << TMachine::LargestTankSize << TMachine::LargestNozzleFlow
                                 << TBoom::LargestSectionWidth;
        QTest::newRow("no number") << qQNaN() << TMachine::StandardTankSize << TMachine::StandardNozzleFlow
                                   << TBoom::StandardSectionWidth;
    }

    void senselessMeasuresAreHeldToReason()
    {
        QFETCH(double, value);
        TDrive drive;
        drive.machine->SetTankSize(value);
        drive.machine->SetNozzleFlow(value);
        drive.machine->SetSectionWidth(3, value);
        drive.machine->SetSectionWidth(-1, value);
        drive.machine->SetSectionWidth(TBoom::SectionCount, value);
        QTEST(drive.machine->TankSize(), "tank");
        QTEST(drive.machine->NozzleFlow(), "nozzle");
        QTEST(drive.machine->Boom().SectionWidth(3), "section");
        QCOMPARE(drive.machine->Boom().SectionWidth(4), TBoom::StandardSectionWidth);
        QCOMPARE(drive.machine->Boom().SectionWidth(-1), 0.0);
        QCOMPARE(drive.machine->Boom().SectionWidth(TBoom::SectionCount), 0.0);
    }
};

COMMONUI_TEST(TMachineTest)
#include "TMachineTest.moc"
