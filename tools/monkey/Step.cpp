#include "tools/monkey/Step.h"

#include <QFile>

#include <stdexcept>

namespace {

QString Quoted(QString word) {
    const bool plain = !word.isEmpty() && !word.contains(QLatin1Char(' ')) && !word.contains(QLatin1Char('"')) &&
                       !word.contains(QLatin1Char('\\')) && !word.contains(QLatin1Char('\n'));
    if (plain) {
        return word;
    }
    word.replace(QLatin1String("\\"), QLatin1String("\\\\"));
    word.replace(QLatin1String("\""), QLatin1String("\\\""));
    word.replace(QLatin1String("\n"), QLatin1String("\\n"));
    return QLatin1Char('"') + word + QLatin1Char('"');
}

/// Takes a word off the front of a line.
QString TakeWord(QString& line) {
    QString word;
    bool quoted = false;
    int index = 0;
    for (; index < line.size(); ++index) {
        const QChar letter = line.at(index);
        if (letter == QLatin1Char('\\') && index + 1 < line.size()) {
            const QChar next = line.at(++index);
            word += next == QLatin1Char('n') ? QLatin1Char('\n') : next;
        } else if (letter == QLatin1Char('"')) {
            quoted = !quoted;
        } else if (letter == QLatin1Char(' ') && !quoted) {
            break;
        } else {
            word += letter;
        }
    }
    line.remove(0, index + 1);
    return word;
}

} // namespace

QString Step::ToText() const {
    QStringList quoted;
    for (const QString& word : words) {
        quoted.append(Quoted(word));
    }
    return quoted.join(QLatin1Char(' '));
}

Step Step::FromText(const QString& line) {
    Step step;
    QString rest = line;
    while (!rest.isEmpty()) {
        step.words.append(TakeWord(rest));
    }
    return step;
}

bool operator==(const Step& one, const Step& other) {
    return one.words == other.words;
}

Steps ReadSteps(const QString& fileName) {
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        throw std::runtime_error("Cannot read " + fileName.toStdString() + ": " + file.errorString().toStdString());
    }
    Steps steps;
    const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    for (const QString& line : lines) {
        if (!line.isEmpty() && !line.startsWith(QLatin1Char('#'))) {
            steps.push_back(Step::FromText(line));
        }
    }
    return steps;
}

void WriteSteps(const QString& fileName, const Steps& steps) {
    QByteArray text;
    for (const Step& step : steps) {
        text += step.ToText().toUtf8() + '\n';
    }
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text) || file.write(text) != text.size()) {
        throw std::runtime_error("Cannot write " + fileName.toStdString() + ": " + file.errorString().toStdString());
    }
}
