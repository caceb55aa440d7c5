#include "MorvanePlatformInterface.h"

#include "TestCase.h"

#include <memory>

namespace
{
class TSilentPlatform : public MorvanePlatformInterface
{
public:
    explicit TSilentPlatform(QObject* parent = nullptr)
        : MorvanePlatformInterface(parent)
    {
    }

    void ShowPopupWindow(TPopupWindow* window, bool localWindow) override
    {
        Q_UNUSED(window)
        Q_UNUSED(localWindow)
    }
    void ShowTaskWindow(TTaskWindow* window, bool localWindow) override
    {
        Q_UNUSED(window)
        Q_UNUSED(localWindow)
    }
    void ShowAnnotation(QWidget* widget, KVN::IAnnotationHandler* handler, QWidget* source) override
    {
        Q_UNUSED(widget)
        Q_UNUSED(handler)
        Q_UNUSED(source)
    }
    void HideAnnotation(QWidget* widget) override { Q_UNUSED(widget) }
    bool ToolTipVisible() const override { return false; }
    bool IsToolTipShownFor(QWidget* source) const override { return source == nullptr; }
    void ShowToolTipFor(QWidget* source, int placement, QString const& text,
                        QSharedPointer<QPixmap> icon) override
    {
        Q_UNUSED(source)
        Q_UNUSED(placement)
        Q_UNUSED(text)
        Q_UNUSED(icon)
    }
    void HideToolTip() override {}
    QWidget* GetTopLevelWindow() const override { return nullptr; }
};
} // namespace

class MorvanePlatformInterfaceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void thereIsNoneUntilOneIsBuilt()
    {
        QVERIFY(MorvanePlatformInterface::Instance() == nullptr);
        {
            TSilentPlatform platform;
            QCOMPARE(MorvanePlatformInterface::Instance(), &platform);
        }
        QVERIFY(MorvanePlatformInterface::Instance() == nullptr);
    }

    void latestStandsUntilItIsDestroyed()
    {
        TSilentPlatform first;
        auto second = std::make_unique<TSilentPlatform>();
        QCOMPARE(MorvanePlatformInterface::Instance(), second.get());
        second.reset();
        QCOMPARE(MorvanePlatformInterface::Instance(), &first);
    }

    void destroyingAnEarlierOneLeavesTheLatest()
    {
        auto first = std::make_unique<TSilentPlatform>();
        TSilentPlatform second;
        first.reset();
        QCOMPARE(MorvanePlatformInterface::Instance(), &second);
    }

    void ownerDeletesItAsAQObject()
    {
        auto owner = std::make_unique<QObject>();
        new TSilentPlatform(owner.get());
        QVERIFY(MorvanePlatformInterface::Instance() != nullptr);
        owner.reset();
        QVERIFY(MorvanePlatformInterface::Instance() == nullptr);
    }

    void switchingToolTipsReachesTheListeners()
    {
        TSilentPlatform platform;
        QSignalSpy spy(&platform, &MorvanePlatformInterface::NotifyToolTipsEnabled);
        Q_EMIT platform.NotifyToolTipsEnabled(true);
        QCOMPARE(spy.count(), 1);
        QCOMPARE(spy.first().first().toBool(), true);
    }
};

COMMONUI_TEST(MorvanePlatformInterfaceTest)
#include "MorvanePlatformInterfaceTest.moc"
