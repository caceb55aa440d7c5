// Saving and restoring a layout of 50 views, against QDomDocument alone on the same text.

#include "BenchScreen.h"

#include <QDomDocument>

#include <benchmark/benchmark.h>

namespace
{
constexpr int ViewCount = 50;
constexpr int ValuesPerView = 4;

// Writes what a window with a few settings writes.
void WriteState(QDomElement element)
{
    element.setAttribute(QStringLiteral("Zoom"), 4);
    for (int i = 0; i < ValuesPerView; ++i)
    {
        QDomElement value = element.ownerDocument().createElement(QStringLiteral("Value"));
        value.setAttribute(QStringLiteral("Id"), i);
        value.setAttribute(QStringLiteral("Text"), QStringLiteral("layer %1 shown").arg(i));
        element.appendChild(value);
    }
}

class TSavingMini : public TMiniWindow
{
public:
    TSavingMini()
        : TMiniWindow(nullptr)
    {
    }
    void SaveXMLStateSnapshot(QDomElement element) override { WriteState(element); }
};

class TSavingFull : public TFullWindow
{
public:
    TSavingFull()
        : TFullWindow(nullptr)
    {
    }
    void SaveXMLStateSnapshot(QDomElement element) override { WriteState(element); }
};

class TViews : public TBenchScreen
{
public:
    TViews()
        : TBenchScreen(0)
    {
        for (int i = 0; i < ViewCount; ++i)
            AddView(new TSavingMini, new TSavingFull);
        Manager()->DisplayFullView(Id(0), false);
        for (int i = 0; i < 3; ++i)
            Manager()->OnShowMiniView(Id(i + 1));
    }
};

// The same elements, built and written by QDomDocument with nothing around it.
QDomElement Rebuild(QDomDocument& document, QDomElement const& model)
{
    QDomElement copy = document.createElement(model.tagName());
    QDomNamedNodeMap const attributes = model.attributes();
    for (int i = 0; i < attributes.count(); ++i)
        copy.setAttribute(attributes.item(i).nodeName(), attributes.item(i).nodeValue());
    for (QDomElement child = model.firstChildElement(); !child.isNull(); child = child.nextSiblingElement())
        copy.appendChild(Rebuild(document, child));
    return copy;
}

void DomSave(benchmark::State& state)
{
    TViews views;
    QDomDocument model;
    model.setContent(views.Manager()->GetStateSnapshotXML());
    for (auto _ : state)
    {
        QDomDocument document(QStringLiteral("State"));
        document.appendChild(Rebuild(document, model.documentElement()));
        QString const text = QString::fromLatin1(document.toString(1).toUtf8().constData());
        benchmark::DoNotOptimize(text.constData());
    }
}
BENCHMARK(DomSave)->Unit(benchmark::kMicrosecond);

void ManagerSave(benchmark::State& state)
{
    TViews views;
    for (auto _ : state)
    {
        QString const text = views.Manager()->GetStateSnapshotXML();
        benchmark::DoNotOptimize(text.constData());
    }
}
BENCHMARK(ManagerSave)->Unit(benchmark::kMicrosecond);

void DomRestore(benchmark::State& state)
{
    TViews views;
    QString const text = views.Manager()->GetStateSnapshotXML();
    state.counters["characters"] = text.size();
    for (auto _ : state)
    {
        QDomDocument document(QStringLiteral("State"));
        benchmark::DoNotOptimize(document.setContent(text));
    }
}
BENCHMARK(DomRestore)->Unit(benchmark::kMicrosecond);

void ManagerRestore(benchmark::State& state)
{
    TViews views;
    QString const text = views.Manager()->GetStateSnapshotXML();
    for (auto _ : state)
        benchmark::DoNotOptimize(views.Manager()->RestoreStateFromSnapShot(text, true));
}
BENCHMARK(ManagerRestore)->Unit(benchmark::kMicrosecond);
} // namespace
