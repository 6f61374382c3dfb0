// The desktop program: the program-wide state, the window, and the loop of events.
#include <QApplication>
#include <QFileInfo>

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

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setStyle(new WindowStyle);
    QApplication::setApplicationName(ToQString(kProgramTitle));
    QApplication::setDesktopFileName(QStringLiteral("ostrivane"));
    QApplication::setWindowIcon(ApplicationIcon());

    DiskFiles files;
    const std::string programDirectory = GetAppPathWithSlash();
    gIniFile = SettingsPath(programDirectory, kIniFileName);
    SettingsFile file(files, gIniFile);
    // This system has no registry: a file beside the settings replaces it.
    const std::string directory = QFileInfo(ToPath(gIniFile)).absolutePath().toStdString();
    FileRegistry registry(files, directory + "/Ostrivane.registry");
    SetMessagePort([](std::string_view text) { ShowMessage(nullptr, LanguageText(text)); });
    Settings settings = StartProgram(files, file, &registry, programDirectory);

    frmMain window(files, file, std::move(settings), programDirectory);
    window.show();
    return QApplication::exec();
}
