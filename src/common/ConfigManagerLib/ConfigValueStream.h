#pragma once

#include <QByteArray>
#include <QVariant>

/// The bytes by which a setting stands in the file: the QDataStream form of its QVariant in one fixed
/// version. Empty for a value that does not survive the way there and back, such as a type without stream
/// operators.
QByteArray ConfigValueToBytes(QVariant const& value);

/// The value of \a bytes, which may be hostile: invalid for anything that is not exactly one streamed value,
/// that nests too deep or that promises more elements than it has bytes.
QVariant ConfigValueFromBytes(QByteArray const& bytes);
