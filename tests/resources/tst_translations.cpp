#include <QFile>
#include <QMap>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QXmlStreamReader>

// The committed English translation (MX_TRANSLATION_FILE) against the texts
// as lupdate finds them now in the sources (MX_TRANSLATED_SOURCES): a text
// added or changed without its translation, a
// translation left for a text that is gone, or a translation that lost a
// placeholder fails here, with the messages listed.
class tst_Translations : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void everyTextHasAFinishedTranslation();
    void everyTranslationHasItsText();
    void translationsKeepThePlaceholders();

private:
    struct Message {
        QString context;
        QString source;
        QString translation;
        bool finished = false;
    };
    using Messages = QMap<QString, Message>;

    static bool read(const QString &path, Messages *messages);
    static QString describe(const Message &message);

    Messages m_current;   // what lupdate finds in the sources
    Messages m_committed; // what the committed file translates
};

// Context, disambiguation and source identify a message, as in lupdate.
bool tst_Translations::read(const QString &path, Messages *messages)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    QXmlStreamReader xml(&file);
    QString context;
    Message message;
    QString comment;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement()) {
            if (xml.name() == QLatin1String("name")) {
                context = xml.readElementText();
            } else if (xml.name() == QLatin1String("message")) {
                message = Message();
                message.context = context;
                comment.clear();
            } else if (xml.name() == QLatin1String("source")) {
                message.source = xml.readElementText();
            } else if (xml.name() == QLatin1String("comment")) {
                comment = xml.readElementText();
            } else if (xml.name() == QLatin1String("translation")) {
                const QStringRef type = xml.attributes().value(QLatin1String("type"));
                message.finished = type.isEmpty();
                message.translation = xml.readElementText(QXmlStreamReader::IncludeChildElements);
            }
        } else if (xml.isEndElement() && xml.name() == QLatin1String("message")) {
            messages->insert(message.context + QChar(0) + comment + QChar(0) + message.source, message);
        }
    }
    return !xml.hasError();
}

QString tst_Translations::describe(const Message &message)
{
    return QStringLiteral("%1: \"%2\"").arg(message.context, message.source);
}

void tst_Translations::initTestCase()
{
    QTemporaryDir scratch;
    QVERIFY(scratch.isValid());
    const QString regenerated = scratch.filePath(QStringLiteral("check_en.ts"));
    const QString sources = qEnvironmentVariable("MX_TRANSLATED_SOURCES");
    const QString committed = qEnvironmentVariable("MX_TRANSLATION_FILE");
    QVERIFY2(!sources.isEmpty() && !committed.isEmpty(), "MX_TRANSLATED_SOURCES and MX_TRANSLATION_FILE are not set");
    QProcess lupdate;
    lupdate.setProcessChannelMode(QProcess::MergedChannels);
    lupdate.start(QStringLiteral(LUPDATE_PATH),
                  {QStringLiteral("-silent"), QStringLiteral("-no-obsolete"), QStringLiteral("-locations"),
                   QStringLiteral("none"), sources, QStringLiteral("-ts"), regenerated});
    QVERIFY(lupdate.waitForFinished(120000));
    QVERIFY2(lupdate.exitStatus() == QProcess::NormalExit && lupdate.exitCode() == 0, lupdate.readAll().constData());
    QVERIFY(read(regenerated, &m_current));
    QVERIFY(read(committed, &m_committed));
    QVERIFY(!m_current.isEmpty());
}

void tst_Translations::everyTextHasAFinishedTranslation()
{
    QStringList missing;
    for (auto it = m_current.cbegin(); it != m_current.cend(); ++it) {
        const auto committed = m_committed.constFind(it.key());
        if (committed == m_committed.cend() || !committed->finished || committed->translation.isEmpty())
            missing << describe(it.value());
    }
    for (const QString &message : qAsConst(missing))
        qInfo("not translated: %s", qUtf8Printable(message));
    QVERIFY2(missing.isEmpty(), qPrintable(QStringLiteral("%1 texts without a finished translation; "
                                                          "cmake --build build --target update_translations, "
                                                          "then translate them")
                                               .arg(missing.size())));
}

void tst_Translations::everyTranslationHasItsText()
{
    QStringList obsolete;
    for (auto it = m_committed.cbegin(); it != m_committed.cend(); ++it) {
        if (!m_current.contains(it.key()))
            obsolete << describe(it.value());
    }
    for (const QString &message : qAsConst(obsolete))
        qInfo("obsolete: %s", qUtf8Printable(message));
    QVERIFY2(obsolete.isEmpty(), qPrintable(QStringLiteral("%1 translations of texts the sources no longer have")
                                                .arg(obsolete.size())));
}

// %1 and the named %Name% placeholders are filled in after translation;
// one that the translation lost or misspelt would leave a hole or a raw
// placeholder in the window.
void tst_Translations::translationsKeepThePlaceholders()
{
    static const QRegularExpression placeholder(QStringLiteral("%(\\d+|[A-Za-z]+%)"));
    const auto placeholders = [](const QString &text) {
        QStringList found;
        auto matches = placeholder.globalMatch(text);
        while (matches.hasNext())
            found << matches.next().captured();
        found.sort();
        return found;
    };
    QStringList broken;
    for (const Message &message : qAsConst(m_committed)) {
        if (message.finished && placeholders(message.source) != placeholders(message.translation))
            broken << describe(message) + QStringLiteral(" -> \"%1\"").arg(message.translation);
    }
    for (const QString &message : qAsConst(broken))
        qInfo("placeholders differ: %s", qUtf8Printable(message));
    QVERIFY2(broken.isEmpty(), qPrintable(QStringLiteral("%1 translations with other placeholders").arg(broken.size())));
}

QTEST_MAIN(tst_Translations)
#include "tst_translations.moc"
