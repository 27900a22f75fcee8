#pragma once

#include <QList>
#include <QWidget>

class QLabel;
class QListWidget;
class QPushButton;
class QGridLayout;

namespace tk {

class BewerkPaneel;

// The window of a panel that follows the edit pattern: its title, the record list (not in the
// live form), one labelled text box or combo box per field and the command buttons. Standard
// widgets named by their captions, so that a screen reader and the end-to-end tests find every
// control. It owns no state: each change of the model rebuilds what it shows, and every event
// goes to the model's procedure (a field's edit to ZetVeld, a button to cmd_Click).
class BewerkPaneelView : public QWidget {
    Q_OBJECT
public:
    explicit BewerkPaneelView(BewerkPaneel& model, QWidget* ouder = nullptr);
    ~BewerkPaneelView() override;
    void bijwerken();

    QListWidget* lijst() const { return m_lijst; }
    QWidget* veld(int index) const { return m_velden.value(index); }
    QPushButton* knop(int index) const { return m_knoppen.value(index); }

private:
    void maakVelden();
    BewerkPaneel& m;
    QLabel* m_titel;
    QListWidget* m_lijst;
    QGridLayout* m_raster;
    QList<QLabel*> m_labels;
    QList<QWidget*> m_velden;
    QList<QPushButton*> m_knoppen;
    bool m_bijwerken = false;
};

} // namespace tk
