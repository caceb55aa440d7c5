#include "TSectionsPage.h"

#include "ConsoleSettings.h"
#include "EditItems.h"
#include "TEditRow.h"
#include "TMachine.h"
#include "TQuantity.h"
#include "TValueRow.h"

namespace
{
constexpr int SectionsPerRow = 4;
// By the unit in which the step is taken.
constexpr double StepInMetres = 0.05;
constexpr double StepInInches = 1.0;

TEditItem SectionItem()
{
    TEditItem item = EditItems::Stepped(Quantities::Width, TBoom::SmallestSectionWidth,
                                        TBoom::LargestSectionWidth, StepInMetres);
    item.unitIncrements = {{UNIT_INCH, StepInInches}};
    return item;
}

} // namespace

TSectionsPage::TSectionsPage(QWidget* parent, TMachine* machine)
    : TSprayerPage(parent, machine)
    , m_Width(new TValueRow(Content(), tr("Working width")))
{
    for (int first = 0; first < TBoom::SectionCount; first += SectionsPerRow)
        AddSections(first);
    AddLine(m_Width);
    TSectionsPage::Sync();
}

void TSectionsPage::AddSections(int first)
{
    TEditRow* const row = AddRow(tr("Sections %1 to %2").arg(first + 1).arg(first + SectionsPerRow));
    for (int section = first; section < first + SectionsPerRow; ++section)
        row->AddItem(SectionItem(), QStringLiteral("setup-section-%1").arg(section + 1),
                     tr("How wide section %1 is, counted from the left").arg(section + 1));
    connect(row, &TEditRow::Edited, this,
            [this, first](int index, double metres)
            {
                int const section = first + index;
                Machine()->SetSectionWidth(section, metres);
                Store(ConsoleSettings::SETTING_SECTION_WIDTH + section,
                      Machine()->Boom().SectionWidth(section));
            });
    m_Sections.append(row);
}

void TSectionsPage::Sync()
{
    for (int section = 0; section < TBoom::SectionCount; ++section)
        m_Sections[section / SectionsPerRow]->SetValue(section % SectionsPerRow,
                                                       Machine()->Boom().SectionWidth(section));
    m_Width->SetText(Quantities::Width.Text(Machine()->Boom().Width()));
}
