#include "widgets/qt_text.h"

#include <QCoreApplication>
#include <QFile>
#include <QLibraryInfo>
#include <QTranslator>

#include "display/shown_text.h"
#include "platform/code_page.h"
#include "shell/clsText.h"

QString ToQString(std::string_view bytes) {
    return QString::fromStdString(ActiveCodePage().ToUtf8(bytes));
}

std::string FromQString(const QString& text) {
    return ActiveCodePage().FromUtf8(text.toStdString());
}

QString LanguageText(std::string_view bytes) {
    static const CodePage latin("1252");
    return QString::fromStdString(latin.ToUtf8(bytes));
}

QString TextNr(Text text) {
    return LanguageText(gText.TextNr(text));
}

namespace {

bool IsGerman() {
    return gText.Language == "german";
}

}  // namespace

QLocale OwnLocale() {
    return {IsGerman() ? QLocale::German : QLocale::English};
}

QString NumberText(qlonglong number) {
    return QString::fromStdString(Utf8Number(number));
}

QString WithCount(const QString& caption, std::optional<int> count) {
    return count ? QStringLiteral("%1 (%2)").arg(caption, NumberText(*count)) : caption;
}

QString ShareText(qlonglong part, qlonglong whole) {
    if (whole == 0)
        return {};
    const QString share = OwnLocale().toString(100.0 * static_cast<double>(part) / static_cast<double>(whole), 'f', 1);
    return share + (IsGerman() ? QStringLiteral("\u00A0%") : QStringLiteral("%"));
}

QString DateText(const QDate& date) {
    return OwnLocale().toString(date, IsGerman() ? QStringLiteral("d. MMMM yyyy") : QStringLiteral("d MMMM yyyy"));
}

QString ToPath(std::string_view path) {
    return QFile::decodeName(QByteArray(path.data(), static_cast<qsizetype>(path.size())));
}

std::string FromPath(const QString& path) {
    return QFile::encodeName(path).toStdString();
}

QString TextNr(Text text, const QString& first, const QString& second, const QString& third) {
    // Not QString::arg, which complains about a text without places, as all are when the language file is missing.
    return QString::fromStdString(Filled(text, {first.toStdString(), second.toStdString(), third.toStdString()}));
}

void SpeakOwnLanguage() {
    static QTranslator texts;
    QCoreApplication::removeTranslator(&texts);
    if (IsGerman() && texts.load(QStringLiteral("qtbase_de"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&texts);
}
