#pragma once

#include "TMessageDialog.h"

/// What the operator of a test release has to agree to: the terms, and a Yes that works once they were
/// scrolled to their end. Terms that fit need no scrolling. GUI thread only.
class COMMONUILIB_EXPORT TAlphaOrBetaWarningDialog : public TMessageDialog
{
    Q_OBJECT

public:
    using TMessageDialog::ShowWindow;

    explicit TAlphaOrBetaWarningDialog(QWidget* parent);

    void Setup() override;
    void AdjustForShow() override;
    /// Enables Yes where the end is in sight. It stays enabled from then on.
    void RefreshButtons();

public Q_SLOTS:
    void ShowWindow(bool modal, bool localWindow) override;

protected:
    void showEvent(QShowEvent* event) override;

private Q_SLOTS:
    void OnSliderValueChanged();
};
