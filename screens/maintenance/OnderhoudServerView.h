#pragma once

#include <QWidget>
#include <array>

class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace tk {

class OnderhoudServer;

// The server panel on the right of the maintenance module: versions, location, the update
// choices and the backup box, each control named for accessibility by its caption. The change
// log opens in a window of its own.
class OnderhoudServerView : public QWidget {
    Q_OBJECT
public:
    explicit OnderhoudServerView(OnderhoudServer& model, QWidget* ouder = nullptr);
    ~OnderhoudServerView() override;
    void bijwerken();

    QLineEdit* txtServerlocatie = nullptr;
    std::array<QComboBox*, 3> cmbServer{}; // 1 automatic update, 2 beta
    std::array<QPushButton*, 6> cmdServer{};
    QComboBox* cmbBackup = nullptr;
    std::array<QPushButton*, 2> cmdBackup{};

private:
    OnderhoudServer& m;
    QLabel *m_kop = nullptr, *m_lblClient = nullptr, *m_client = nullptr, *m_lblServer = nullptr,
           *m_server = nullptr, *m_lblLocatie = nullptr, *m_lblAutomatisch = nullptr,
           *m_lblBeta = nullptr, *m_noot = nullptr;
    QGroupBox *m_updates = nullptr, *m_backup = nullptr;
};

} // namespace tk
