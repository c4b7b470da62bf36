// Lets the user choose one of the installed applications: a list with a search field above it. Main thread.
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
    // `prompt` stands on the button that confirms.
    explicit QtApplicationChooser(const std::string& prompt);

    // The path of the desktop entry; absent while none is chosen.
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
