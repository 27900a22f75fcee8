#pragma once

#include <QTimer>
#include <QWidget>

namespace tk {

class Accounts;

// Shows an Accounts button at its place on the bar, runs its hover timer, forwards the mouse.
class AccountsView : public QWidget {
    Q_OBJECT
public:
    AccountsView(Accounts& knop, QWidget* ouder);
    void bijwerken();
    QTimer tmrHover;

protected:
    void paintEvent(QPaintEvent*) override;
    void mousePressEvent(QMouseEvent*) override;
    void mouseReleaseEvent(QMouseEvent*) override;

private:
    Accounts& m_knop;
};

} // namespace tk
