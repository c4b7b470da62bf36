// The pictures of menus and forms for Qt: drawn by the program, of a file, or a symbol. Template pictures and symbols
// take the colour of the text beside them, so whoever shows one makes it anew when the palette changes. Main thread.
#pragma once

#include "platform/Image.h"

#include <QIcon>
#include <QPalette>
#include <QPixmap>

namespace haloric {

class QtImages {
public:
    // As large as `points`, with that many pixels a point; null for an empty picture.
    static QPixmap pixmap(const Image& image, const Size& points, double pixelsPerPoint, const QPalette& palette);

    // In the sizes that menus and panels use; null for an empty picture.
    static QIcon icon(const Image& image, const QPalette& palette);
};

} // namespace haloric
