#include "TXMLSettings.h"

QMap<QString, QDomElement> TXMLSettings::GetChildrenAsMap(QDomElement const& element)
{
    QMap<QString, QDomElement> children;
    for (QDomElement child = element.firstChildElement(); !child.isNull(); child = child.nextSiblingElement())
    {
        if (!children.contains(child.tagName()))
            children.insert(child.tagName(), child);
    }
    return children;
}
