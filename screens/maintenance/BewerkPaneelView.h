#pragma once

#include <QList>
#include <QWidget>

class QCheckBox;
class QGridLayout;
class QGroupBox;
class QLabel;
class QListWidget;
class QPushButton;
class QVBoxLayout;

namespace tk {

class BewerkPaneel;

// The window of a panel that follows the edit pattern: its title, the record list (not in the
// live form), one labelled text box or combo box per field, in the frames the fields name, and
// the command buttons. Standard widgets named by their captions, so that a screen reader and the
// end-to-end tests find every control. It owns no state: each change of the model updates what
// it shows, and every event goes to the model's procedure (a field's edit to ZetVeld, a button
// to cmd_Click).
class BewerkPaneelView : public QWidget {
    Q_OBJECT
public:
    explicit BewerkPaneelView(BewerkPaneel& model, QWidget* ouder = nullptr);
    ~BewerkPaneelView() override;
    void bijwerken();

    QListWidget* lijst() const { return m_lijst; }
    QWidget* veld(int index) const { return m_velden.value(index); }
    QPushButton* knop(int index) const { return m_knoppen.value(index); }
    QCheckBox* wachtwoordenTonen() const { return m_tonen; }

private:
    void maakVelden();
    BewerkPaneel& m;
    QLabel* m_titel;
    QListWidget* m_lijst;
    QVBoxLayout* m_vakken;
    QList<QGroupBox*> m_groepen; // by field: its frame, or none
    QList<QLabel*> m_labels, m_uitleg;
    QList<QWidget*> m_velden;
    QList<QPushButton*> m_knoppen;
    QCheckBox* m_tonen = nullptr;
};

} // namespace tk
