#pragma once

#include "TSetupRow.h"

#include <QPointer>

class TPushButton;
class TTextEditWidget;

/// One line of the setup with a text: the button shows it and has it edited over itself, with the on-screen
/// keyboard. An edit that is open when the line goes out of sight is given up.
class TTextRow : public TSetupRow
{
    Q_OBJECT

public:
    /// \a name is what the button is called by, \a toolTip tells what the text is.
    TTextRow(QWidget* parent, QString const& caption, QString const& name, QString const& toolTip);
    ~TTextRow() override;

    /// Characters; a longer text cannot be typed.
    void SetLongest(int length);
    /// Shows what is known. Emits nothing, and leaves alone what is being typed.
    void SetText(QString const& text);

Q_SIGNALS:
    /// The operator has accepted \a text, which may be empty.
    void Edited(QString const& text);

protected:
    void hideEvent(QHideEvent* event) override;

private:
    void Open();

    TPushButton* m_Button;
    QPointer<TTextEditWidget> m_Edit;
    QString m_Text;
};
