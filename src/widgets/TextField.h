#pragma once

#include "widgets/FieldEdit.h"

namespace widgets {

// A text field as most windows have them: Enter moves on to the next field, Escape puts back what stood there
// when the focus came.
class TextField : public FieldEdit
{
    Q_OBJECT

public:
    // The text that goes in for what is typed; none drops it.
    using Filter = std::function<std::optional<QString>(const QString& typed)>;

    // Without a filter the field keeps what is typed.
    TextField(const QString& name, int limit, Filter filter, QWidget* parent = nullptr);

    // Shows a text without telling of a change; one that is longer than the limit is cut in the field alone.
    void showText(const QString& text) { FieldEdit::showText(text, limit_); }

    // What Escape puts back.
    const QString& remembered() const { return remembered_; }
    void remember(const QString& text) { remembered_ = text; }

signals:
    void entered(); // the focus came
    void changed(const QString& text);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    static Verbs verbsOf(TextField* field, Filter filter);

    const int limit_;
    QString remembered_; // as the text stood when the focus came
};

} // namespace widgets
