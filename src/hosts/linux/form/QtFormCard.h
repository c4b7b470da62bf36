// The rounded card that holds the rows of a section, with lines between them. Main thread.
#pragma once

#include <QWidget>

class QVBoxLayout;

namespace haloric {

class QtFormCard final : public QWidget {
public:
    explicit QtFormCard(QWidget* parent);

    QVBoxLayout& rows() { return *m_rows; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QVBoxLayout* m_rows;
};

} // namespace haloric
