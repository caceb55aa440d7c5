#pragma once

#include "UtilityLibExport.h"

#include <QDomElement>
#include <QMap>
#include <QString>

/// Small helpers around settings that are kept as XML.
class UTILITYLIB_EXPORT TXMLSettings
{
public:
    /// The child elements of \a element by tag name. Of several children with one tag the first stands. Empty
    /// for a null element.
    static QMap<QString, QDomElement> GetChildrenAsMap(QDomElement const& element);
};
