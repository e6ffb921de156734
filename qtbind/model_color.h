// The model keeps a colour as one 32-bit number with red in the low byte,
// green next and blue above it.
#pragma once

#include <QColor>
#include <cstdint>

namespace qtbind {

QColor ModelColor(std::uint32_t color);
// The other way: a colour chosen in Qt as the model keeps it.
std::uint32_t ModelColorOf(const QColor& color);

}  // namespace qtbind
