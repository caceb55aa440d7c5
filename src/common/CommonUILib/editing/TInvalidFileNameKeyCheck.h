#pragma once

#include "CommonUILibExport.h"
#include "KeyCheck.h"

#include <QString>

/// Lets through what may stand in the name of a file on the drives of the console. For file names that the
/// operator types.
class COMMONUILIB_EXPORT TInvalidFileNameKeyCheck : public Keyboard_layouts_api::KeyCheck
{
public:
    TInvalidFileNameKeyCheck();
    ~TInvalidFileNameKeyCheck() override;

    bool IsCharacterAllowed(QChar character) const override;
    bool IsStringAllowed(QString const& text) const override;

private:
    QString const m_Invalid;
};
