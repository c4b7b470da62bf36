// The program's images as Qt's: those of menus and forms (drawn, a file's icon, or a symbol), and the program's own
// icon. Template images and symbols take the text colour of the palette, so they must be requested again when the
// palette changes. Main thread.
#pragma once

#include "platform/Image.h"

#include <QIcon>
#include <QPalette>
#include <QPixmap>

namespace haloric {

class QtImages {
public:
    // `points` is the size, `pixelsPerPoint` the resolution. Null for an empty image.
    static QPixmap pixmap(const Image& image, const Size& points, double pixelsPerPoint, const QPalette& palette);

    // In the sizes that menus and panels use. Null for an empty image.
    static QIcon icon(const Image& image, const QPalette& palette);

    // From the user's icon theme, which has it when the program is installed; otherwise drawn.
    static QIcon programIcon();
};

} // namespace haloric
