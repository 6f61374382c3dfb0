// The desktop program: the program-wide state, the window, and the loop of events.
#include <QApplication>
#include <QCommandLineParser>
#include <QFileInfo>
#include <algorithm>

#ifdef __GLIBC__
#include <malloc.h>
#endif

#include "platform/files.h"
#include "platform/registry.h"
#include "platform/settings_file.h"
#include "project/start.h"
#include "shell/operations.h"
#include "shell/program.h"
#include "shell/settings.h"
#include "views/frm_main.h"
#include "views/questions.h"
#include "widgets/icons.h"
#include "widgets/qt_text.h"
#include "widgets/window_style.h"

namespace {

// The C library of Linux gives each thread a heap, and what a helper frees at the end of its heap does not go back to
// the system: 5 MB stay after a large project was closed. One heap costs no time, measured, as nearly all that helpers
// make is in the arenas of modules.
void UseOneHeap() {
#ifdef __GLIBC__
    mallopt(M_ARENA_MAX, 1);
#endif
}

}  // namespace

int main(int argc, char** argv) {
    UseOneHeap();
    QApplication app(argc, argv);
    QApplication::setStyle(new WindowStyle);
    QApplication::setApplicationName(ToQString(kProgramTitle));
    QApplication::setDesktopFileName(QStringLiteral("ostrivane"));
    QApplication::setWindowIcon(ApplicationIcon());

    QApplication::setApplicationVersion(QString::fromStdString(ProgramVersion()));
    QCommandLineParser commandLine;
    commandLine.addPositionalArgument(QStringLiteral("PROJECT.vbp"), QStringLiteral("The project to open."),
                                      QStringLiteral("[PROJECT.vbp]"));
    commandLine.addHelpOption();
    commandLine.addVersionOption();
    commandLine.process(app);

    DiskFiles files;
    const std::string programDirectory = GetAppPathWithSlash();
    SettingsFile file(files, SettingsPath(programDirectory, kIniFileName));
    // This system has no registry: a file beside the settings replaces it.
    const std::string directory = QFileInfo(ToPath(file.Path())).absolutePath().toStdString();
    FileRegistry registry(files, directory + "/Ostrivane.registry");
    SetMessagePort([](std::string_view text) { ShowMessage(nullptr, LanguageText(text)); });
    Settings settings = StartProgram(files, file, &registry, programDirectory);

    frmMain window(files, file, std::move(settings), programDirectory);
    window.show();
    // Projects first: a diagram belongs to one.
    QStringList named = commandLine.positionalArguments();
    std::stable_partition(named.begin(), named.end(), [](const QString& path) {
        return !path.endsWith(QStringLiteral(".ovg"), Qt::CaseInsensitive);
    });
    for (const QString& path : named)
        // In the loop of events, as the progress and questions of the window need it.
        QMetaObject::invokeMethod(
            &window, [&window, file = FromPath(QFileInfo(path).absoluteFilePath())] { window.OpenFile(file); },
            Qt::QueuedConnection);
    return QApplication::exec();
}
