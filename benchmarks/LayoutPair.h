#pragma once

#include "BenchScreen.h"

#include <QDomDocument>

/// A screen of 50 views, each of which has something to save, and the same work by QDomDocument alone.
namespace LayoutPair
{
constexpr int ViewCount = 50;
constexpr int ValuesPerView = 4;

/// Writes what a window with a few settings writes.
inline void WriteState(QDomElement element)
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

/// The same elements, built by QDomDocument with nothing around it.
inline QDomElement Rebuild(QDomDocument& document, QDomElement const& model)
{
    QDomElement copy = document.createElement(model.tagName());
    QDomNamedNodeMap const attributes = model.attributes();
    for (int i = 0; i < attributes.count(); ++i)
        copy.setAttribute(attributes.item(i).nodeName(), attributes.item(i).nodeValue());
    for (QDomElement child = model.firstChildElement(); !child.isNull(); child = child.nextSiblingElement())
        copy.appendChild(Rebuild(document, child));
    return copy;
}

inline QString DomSave(QDomDocument const& model)
{
    QDomDocument document(QStringLiteral("State"));
    document.appendChild(Rebuild(document, model.documentElement()));
    return QString::fromLatin1(document.toString(1).toUtf8().constData());
}

inline bool DomRestore(QString const& text)
{
    QDomDocument document(QStringLiteral("State"));
    return document.setContent(text);
}
} // namespace LayoutPair
