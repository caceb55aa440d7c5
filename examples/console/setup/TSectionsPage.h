#pragma once

#include "TSprayerPage.h"

class TValueRow;

/// How wide the sections of the boom are, and all of them together.
class TSectionsPage : public TSprayerPage
{
    Q_OBJECT

public:
    TSectionsPage(QWidget* parent, TMachine* machine);

    void Sync() override;

private:
    void AddSections(int first);

    QVector<TEditRow*> m_Sections;
    TValueRow* m_Width;
};
