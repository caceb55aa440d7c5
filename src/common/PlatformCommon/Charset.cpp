#include "Charset.h"

namespace Keyboard_layouts_api
{
Charset::Charset() = default;

Charset::~Charset() = default;
} // namespace Keyboard_layouts_api
