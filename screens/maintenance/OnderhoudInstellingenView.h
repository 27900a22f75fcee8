#pragma once

#include <QWidget>
#include <array>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace tk {

class OnderhoudInstellingen;

// The settings panel on the right of the maintenance module: the model's fields in text boxes
// and lists, each named for accessibility by its caption; every edit goes to the model's event
// procedure and the model says what is enabled.
class OnderhoudInstellingenView : public QWidget {
    Q_OBJECT
public:
    explicit OnderhoudInstellingenView(OnderhoudInstellingen& model, QWidget* ouder = nullptr);
    ~OnderhoudInstellingenView() override;
    void bijwerken();

    std::array<QLineEdit*, 2> txtWachtwoord{};
    QLineEdit* txtInternet = nullptr;
    std::array<QLineEdit*, 3> txtEmail{};
    QComboBox* cmbThema = nullptr;
    QComboBox* cmbTaal = nullptr;
    QCheckBox* chckWachtwoord = nullptr;
    std::array<QPushButton*, 2> cmdInstellingen{};

private:
    OnderhoudInstellingen& m;
    QLabel* m_kop = nullptr;
    QGroupBox *m_wachtwoorden = nullptr, *m_internet = nullptr, *m_email = nullptr,
              *m_taal = nullptr;
    std::array<QLabel*, 2> m_lblWachtwoord{};
    QLabel *m_lblInternet = nullptr, *m_lblUitleg = nullptr, *m_lblThema = nullptr,
           *m_lblTaal = nullptr;
    std::array<QLabel*, 3> m_lblEmail{};
};

} // namespace tk
