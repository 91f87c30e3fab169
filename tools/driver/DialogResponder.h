#pragma once

#include <QDialog>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QVector>

#include <functional>

enum class BoxKind { Critical, Information, Warning, Question, TextInput, NumberInput, OpenFile, SaveFile, Dialog };

/// A box or dialog as the operator saw it.
struct SeenBox {
    BoxKind kind = BoxKind::Dialog;
    QWidget* parent = nullptr; ///< to be compared only
    QString title;
    QString text;        ///< of an input box its label, of a file box its filters
    QString buttons;     ///< captions, separated by commas
    bool markup = false; ///< the text may be taken for markup
    QString parentClass; ///< for boxes over something that did not exist when the box was expected
    QString parentName;
};

/// What the operator does about a box.
struct BoxReply {
    bool accept = true;                          ///< of a question: Yes
    QString typed;                               ///< into an input box; a file box takes it as the name
    std::function<void(QDialog& box)> meanwhile; ///< what happens while the box is open, before it is answered
    bool leave = false;                          ///< the dialog stays open; something else closes it
};

/// Answers the modal boxes and dialogs that open, which are expected in this order. Any other box goes to the
/// FailureLog and is closed, so that no loop waits for it.
class DialogResponder : public QObject {
    Q_OBJECT

public:
    DialogResponder();

    void ExpectError(QWidget* parent, const QString& title, const QString& text, const BoxReply& reply = {});
    void ExpectInformation(QWidget* parent, const QString& title, const QString& text, const BoxReply& reply = {});
    void ExpectQuestion(QWidget* parent, const QString& title, const QString& text, const BoxReply& reply);
    void ExpectTextInput(QWidget* parent, const QString& title, const QString& label, const BoxReply& reply);
    void ExpectNumberInput(QWidget* parent, const QString& title, const QString& label, const BoxReply& reply);
    /// The kind is OpenFile or SaveFile; the reply's text is the name that is typed.
    void ExpectFile(BoxKind kind, QWidget* parent, const QString& title, const QString& filter, const BoxReply& reply);
    void ExpectDialog(QWidget* parent, const QString& title, const BoxReply& reply);
    /// A dialog that is used, from the event loop, and has to be closed by that.
    void ExpectUse(QWidget* parent, const QString& title, const std::function<void(QDialog& dialog)>& use);

    /// Whether unexpected message boxes are closed without a failure.
    void Tolerate(bool tolerated) { tolerating = tolerated; }

    int Count() const { return seen.size(); }
    const QVector<SeenBox>& Peek() const { return seen; }
    /// The boxes that have been open since the last call.
    QVector<SeenBox> Take();
    /// Logs a failure for every expected box that did not open; then none is expected.
    void Finish();

private:
    struct Expected {
        SeenBox box;
        BoxReply reply;
    };

    void Expect(BoxKind kind, QWidget* parent, const QString& title, const QString& text, const QString& buttons,
                const BoxReply& reply);
    void Look();
    void Answer(QDialog* dialog);

    QTimer timer;
    QVector<Expected> expected;
    QVector<SeenBox> seen;
    QVector<QPointer<QDialog>> answered;
    bool tolerating = false;
};

/// What the box shows now.
SeenBox Describe(const QDialog& dialog);
/// For a person to read.
QString ToText(const SeenBox& box);
