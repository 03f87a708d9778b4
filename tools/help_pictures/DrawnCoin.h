#pragma once

#include <QImage>

namespace obelmark {

/// A drawing of the reverse of the penny of British West Africa of 1936.
QImage drawnCoin();

} // namespace obelmark
