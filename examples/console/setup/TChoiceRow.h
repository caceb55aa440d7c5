#pragma once

#include <QStringList>
#include <QVector>
#include <QWidget>

class TPushButton;

/// One setting with a few values to choose from: its name, and a button for each value. The chosen one is
/// green.
class TChoiceRow : public QWidget
{
    Q_OBJECT

public:
    static constexpr int Height = 84;

    /// \a toolTip tells what is chosen here.
    TChoiceRow(QWidget* parent, QString const& caption, QString const& toolTip, QStringList const& choices);

    /// -1 for none. Emits nothing.
    void SetChoice(int choice);

Q_SIGNALS:
    void Chosen(int choice);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QString m_Caption;
    QVector<TPushButton*> m_Buttons;
    int m_Choice = -1;
};
