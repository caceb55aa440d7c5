#pragma once

#include <QObject>
#include <QPixmap>
#include <QPointer>

class TMachine;
class TMessageDialog;

/// What the console has to say about the tank: it warns when it is nearly empty, and asks before it is
/// drained. Neither message stands twice on the screen.
class TTankMessages : public QObject
{
    Q_OBJECT

public:
    explicit TTankMessages(TMachine* machine);
    ~TTankMessages() override;

    /// Asks whether the tank is to be drained, and drains it on a yes.
    void AskToDrain();

private:
    QString Question() const;
    QString Warning() const;
    void Warn();
    void ShowValuesAnew();

    TMachine* m_Machine;
    QPointer<TMessageDialog> m_Question;
    QPointer<TMessageDialog> m_Warning;
};
