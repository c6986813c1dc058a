// SPDX-License-Identifier: MIT
// Takes what headers say of properties, so that form editors and the reference say the same.
#include <QFile>
#include <QRegularExpression>
#include <QStringList>
#include <QTextStream>

namespace {

struct Note
{
    QString className;
    QString property;
    QString text;
};

/// Reads one header. A comment holds for the properties that follow it without a line in between; in
/// the binding's base class, where properties are not yet any, it is that of the getter.
class HeaderReader
{
public:
    explicit HeaderReader(QList<Note> &notes) : m_notes(notes) {}

    void read(QTextStream &header)
    {
        while (!header.atEnd()) {
            QString line = header.readLine().trimmed();
            while (line.startsWith("Q_PROPERTY(") && !line.endsWith(')') && !header.atEnd())
                line += ' ' + header.readLine().trimmed();
            readLine(line);
        }
    }

private:
    void readLine(const QString &line)
    {
        static const QRegularExpression head("^class (?:\\w+_EXPORT )?(\\w+)[^;]*$");
        static const QRegularExpression property("^Q_PROPERTY\\(.+?\\s(\\w+)\\s+READ\\b");
        static const QRegularExpression getter(
            "^virtual \\w+ (?:is(?=[A-Z]))?(\\w+)\\(\\) const\\b");
        if (line.startsWith("///")) {
            m_comment << line.mid(3).trimmed();
            return;
        }
        if (const auto match = head.match(line); match.hasMatch())
            m_class = match.captured(1);
        if (const auto match = property.match(line); match.hasMatch()) {
            m_last = m_comment.isEmpty() ? m_last : m_comment.join(' ');
            add(match.captured(1), m_last);
        } else {
            m_last.clear();
        }
        const auto got = getter.match(line);
        if (m_class == QLatin1StringView("TMemProxy") && got.hasMatch())
            add(got.captured(1), m_comment.join(' '));
        m_comment.clear();
    }

    void add(QString name, const QString &text)
    {
        name[0] = name[0].toLower();
        if (!text.isEmpty())
            m_notes.append({m_class, name, text});
    }

    QList<Note> &m_notes;
    QString m_class;
    QStringList m_comment;
    QString m_last; ///< of the property in the line before
};

QString quoted(QString text)
{
    return '"' + text.replace('\\', "\\\\").replace('"', "\\\"") + '"';
}

bool write(const QString &fileName, const QList<Note> &notes)
{
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text))
        return false;
    QTextStream source(&file);
    source << "#include \"widgets/forms/PropertyNotes.h\"\n\n"
              "namespace {\nconst propertynotes::Note notes[] = {\n";
    for (const Note &note : notes)
        source << "    {" << quoted(note.className) << ", " << quoted(note.property) << ",\n     "
               << quoted(note.text) << "},\n";
    source << "};\n}\n\nstd::span<const propertynotes::Note> propertynotes::all()\n{\n"
              "    return notes;\n}\n";
    source.flush();
    return source.status() == QTextStream::Ok && file.flush();
}

} // namespace

// Called by the build as: console-property-notes SOURCE HEADER...
int main(int argc, char *argv[])
{
    QTextStream errors(stderr);
    QList<Note> notes;
    for (int index = 2; index < argc; ++index) {
        QFile file(QString::fromLocal8Bit(argv[index]));
        if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
            errors << "cannot read " << file.fileName() << '\n';
            return 1;
        }
        QTextStream header(&file);
        HeaderReader(notes).read(header);
    }
    if (argc < 3 || notes.isEmpty() || !write(QString::fromLocal8Bit(argv[1]), notes)) {
        errors << "usage: console-property-notes SOURCE HEADER...\n";
        return 1;
    }
    return 0;
}
