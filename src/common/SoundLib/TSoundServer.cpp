#include "TSoundServer.h"

class TSoundServer::TPrivate
{
};

TSoundServer::TSoundServer(QObject* parent, QString const& soundFolder)
    : QObject(parent)
{
    Q_UNUSED(soundFolder)
}
TSoundServer::~TSoundServer() = default;
void TSoundServer::PlaySound(int, int, ESoundType) {}
void TSoundServer::Initialise() {}
