// A dialog for choosing one of the installed applications: a list with a search field above it. Main thread.
#pragma once

#include <optional>
#include <string>

#include <QDialog>

class QLineEdit;
class QListWidget;
class QPushButton;

namespace haloric {

class QtApplicationChooser final : public QDialog {
public:
    // `prompt` is the label of the button that confirms.
    explicit QtApplicationChooser(const std::string& prompt);

    // The path of the desktop entry; absent if none is selected.
    std::optional<std::string> chosen() const;

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void fill();
    void filter(const QString& text);
    void selectFirst();

    QLineEdit* m_search;
    QListWidget* m_list;
    QPushButton* m_confirm;
};

} // namespace haloric
