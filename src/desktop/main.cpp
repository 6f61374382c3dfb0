// The desktop program: the program-wide state, the window, and the loop of events.
#include <QApplication>

#include "platform/files.h"
#include "platform/memory.h"
#include "platform/settings_file.h"
#include "project/start.h"
#include "shell/program.h"
#include "shell/settings.h"
#include "views/frm_main.h"
#include "views/icons.h"
#include "views/qt_text.h"
#include "views/window_style.h"

int main(int argc, char** argv) {
    UseLargePages();
    QApplication app(argc, argv);
    QApplication::setStyle(new WindowStyle);
    QApplication::setApplicationName(ToQString(kProgramTitle));
    QApplication::setDesktopFileName(QStringLiteral("ostrivane"));
    QApplication::setWindowIcon(ApplicationIcon());

    DiskFiles files;
    const std::string programDirectory = GetAppPathWithSlash();
    gIniFile = SettingsPath(programDirectory, kIniFileName);
    SettingsFile settings(files, gIniFile);
    StartProgram(files, settings, nullptr, programDirectory);

    frmMain window(files, settings, programDirectory);
    window.show();
    return QApplication::exec();
}
