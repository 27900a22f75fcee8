#pragma once

#include <QAccessibleWidget>

namespace tk {

class SkinnedButtonView;

// A picture-drawn button (a class button, an account button) as accessibility sees it: a
// button named by its caption, pressed, focused, disabled or (the chosen account) checked as
// its model says, with a press action that clicks it.
class SkinnedButtonAccessible : public QAccessibleWidget {
public:
    explicit SkinnedButtonAccessible(SkinnedButtonView* view);

    QString text(QAccessible::Text t) const override;
    QAccessible::State state() const override;
    QStringList actionNames() const override;
    void doAction(const QString& actie) override;

private:
    SkinnedButtonView* view() const;
};

} // namespace tk
