#pragma once

class QString;

/// Whether a saved layout may be given to the XML parser at all. A quick scan refuses what a parser answers
/// with a stack or a memory that runs out: elements nested deeper than any layout, document types that are
/// more than a name, texts of absurd length. Everything else is left to the parser. Private to the room.
bool IsSaneLayoutText(QString const& text);
