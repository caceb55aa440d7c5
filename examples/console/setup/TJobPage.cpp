#include "TJobPage.h"

#include "ConfigManager.h"
#include "ConsoleSettings.h"
#include "EditItems.h"
#include "TEditRow.h"
#include "TJob.h"
#include "TQuantity.h"
#include "TTextRow.h"

namespace
{
enum EStart
{
    START_DAY,
    START_TIME
};

void Store(int setting, QVariant const& value)
{
    ConfigManager::Instance()->Write(setting, value, true);
}
} // namespace

TJobPage::TJobPage(QWidget* parent, TJob* job)
    : TSetupPage(parent)
    , m_Job(job)
{
    AddOperator();
    AddStart();
    AddServer();
    connect(job, &TJob::Changed, this, &TJobPage::Sync);
    TJobPage::Sync();
}

void TJobPage::AddOperator()
{
    m_Operator = new TTextRow(Content(), tr("Operator"), QStringLiteral("setup-operator"),
                              tr("The name of whoever works with the machine"));
    m_Operator->SetLongest(TJob::LongestOperatorName);
    connect(m_Operator, &TTextRow::Edited, this,
            [this](QString const& name)
            {
                m_Job->SetOperator(name);
                Store(ConsoleSettings::SETTING_OPERATOR, m_Job->Operator());
            });
    AddLine(m_Operator);
}

void TJobPage::AddStart()
{
    m_Start = new TEditRow(Content(), tr("Begun on and at"));
    TEditItem const day = EditItems::Typed(Quantities::Date, TJob::FirstDay, TJob::LastDay, NUMBER_PAD_DATE);
    m_Start->AddItem(day, QStringLiteral("setup-start-day"), tr("The day on which the job has begun"));
    TEditItem const time = EditItems::Typed(Quantities::TimeOfDay, 0.0, TJob::HoursPerDay, NUMBER_PAD_TIME);
    m_Start->AddItem(time, QStringLiteral("setup-start-time"), tr("The time at which the job has begun"));
    connect(m_Start, &TEditRow::Edited, this, &TJobPage::TakeStart);
    connect(m_Start, &TEditRow::GivenUp, this, &TJobPage::Sync);
    AddLine(m_Start);
}

void TJobPage::TakeStart(int index, double value)
{
    if (index == START_DAY)
    {
        m_Job->SetStartDay(value);
        Store(ConsoleSettings::SETTING_START_DAY, m_Job->StartDay());
    }
    else
    {
        m_Job->SetStartTime(value);
        Store(ConsoleSettings::SETTING_START_TIME, m_Job->StartTime());
    }
}

void TJobPage::AddServer()
{
    m_Server = new TEditRow(Content(), tr("Server"));
    m_Server->AddItem(EditItems::Address(), QStringLiteral("setup-server"),
                      tr("The address to which the results are sent; 0.0.0.0 for none"));
    connect(m_Server, &TEditRow::AddressEdited, this,
            [this](int, QString const& address)
            {
                m_Job->SetServer(address);
                Store(ConsoleSettings::SETTING_SERVER, m_Job->Server());
            });
    connect(m_Server, &TEditRow::GivenUp, this, &TJobPage::Sync);
    AddLine(m_Server);
}

void TJobPage::Sync()
{
    m_Operator->SetText(m_Job->Operator());
    m_Start->SetValue(START_DAY, m_Job->StartDay());
    m_Start->SetValue(START_TIME, m_Job->StartTime());
    m_Server->SetAddress(0, m_Job->Server());
}
