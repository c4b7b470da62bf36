// What the program is: icon, name, version, one line. Main thread.
#pragma once

#include "platform/Panels.h"

#include <QDialog>

class QLabel;

namespace haloric {

class QtAboutPanel final : public QDialog {
public:
    QtAboutPanel();

    void show(const AboutPanel& panel);

private:
    QLabel* addText();

    QLabel* m_name;
    QLabel* m_version;
    QLabel* m_credits;
};

} // namespace haloric
