#pragma once

#include <QDialog>
#include <array>

class QLabel;
class QLineEdit;
class QListWidget;
class QProgressBar;
class QPushButton;
class QTabWidget;

namespace tk {

class FrmInternetFilter;

// The window of frmInternetFilter: standard controls, so that a screen reader names each one and
// the keyboard reaches all of them (Ctrl+Tab between the tabs, Enter in a field adds, Delete in a
// list removes, Escape cancels). Every control carries the given name of its control as its
// object name and its caption as its accessible name.
class FrmInternetFilterView : public QDialog {
    Q_OBJECT
public:
    explicit FrmInternetFilterView(FrmInternetFilter& model, QWidget* ouder = nullptr);
    ~FrmInternetFilterView() override;

    static constexpr int Breedte = 520, Hoogte = 460;

    QTabWidget* tabstrip() const { return m_tabs; }
    QLineEdit* veld(int lijst) const { return m_velden[size_t(lijst)]; }
    QListWidget* lijst(int lijst) const { return m_lijsten[size_t(lijst)]; }

protected:
    void reject() override;
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void bijwerken();
    void naActie();
    FrmInternetFilter& m;
    QTabWidget* m_tabs;
    std::array<QLabel*, 3> m_labels{};
    std::array<QLineEdit*, 3> m_velden{};
    std::array<QListWidget*, 3> m_lijsten{};
    std::array<QLabel*, 3> m_aantallen{};
    std::array<QPushButton*, 6> m_knoppen{};
    QPushButton *m_updaten, *m_opslaan, *m_annuleren;
    QLabel* m_status;
    QProgressBar* m_voortgang;
};

} // namespace tk
