#include "views/refresh_texts.h"

#include <QStringList>

#include "display/project_file_words.h"
#include "display/refresh_changes.h"
#include "model/clsProjekt.h"
#include "project/refresh.h"
#include "shell/words.h"
#include "widgets/qt_text.h"

namespace {

constexpr int kMostNames = 8;

QString NameOf(const ChangedFile& file) {
    const QString name = ToQString(modMain::DirOrFileName(file.path, 0));
    return file.what == FileChange::Gone ? TextNr(Text::FileIsMissing, name) : name;
}

QString Joined(QStringList names) {
    if (names.size() > kMostNames)
        names = names.mid(0, kMostNames) << QString(QChar(0x2026));
    return names.join(QStringLiteral(", "));
}

// "(modSlip.bas removed from the project, ...)", after the name of the project file.
QString WhatInProject(const clsProjekt& projekt) {
    QStringList changes;
    for (const ProjectFileChange& change :
         ChangesOfProjectFile(projekt, projekt.TheFiles().ReadText(projekt.FullPath).text))
        changes.append(QString::fromStdString(NameOf(change)) + QLatin1Char(' ') + TextNr(WordOf(change.what)));
    return changes.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(Joined(changes));
}

QString Counted(int count, Text one, Text many) {
    return count == 1 ? TextNr(one) : TextNr(many, NumberText(count));
}

}  // namespace

QString NoticeOf(const clsProjekt& projekt, const ChangedFiles& changed) {
    QStringList names;
    for (const ChangedFile& file : changed.files)
        if (file.what != FileChange::BeingWritten)
            names.append(NameOf(file));
    if (changed.project && changed.whyNoProject == Text::None && changed.files.front().what == FileChange::Changed)
        names.front() += WhatInProject(projekt);
    if (names.isEmpty())
        return {};
    return names.size() == 1 ? TextNr(Text::OneFileChanged, names.front())
                             : TextNr(Text::SomeFilesChanged, NumberText(names.size()), Joined(names));
}

QString StillWritten(const ChangedFiles& changed) {
    QStringList names;
    for (const ChangedFile& file : changed.files)
        if (file.what == FileChange::BeingWritten)
            names.append(NameOf(file));
    return Joined(names);
}

QString SummaryOf(const RefreshChanges& changes) {
    if (changes.rows.empty())
        return {};
    QStringList procedures;
    procedures.append(changes.changed > 0 ? Counted(changes.changed, Text::OneProcedureChanged, Text::ProceduresChanged)
                                          : TextNr(Text::NoProcedureChanged));
    const auto add = [](QStringList& parts, int count, Text text) {
        if (count > 0)
            parts.append(TextNr(text, NumberText(count)));
    };
    add(procedures, changes.added, Text::CountNew);
    add(procedures, changes.gone, Text::CountGone);
    QStringList parts{procedures.join(QStringLiteral(", "))};
    if (changes.others > 0)
        parts.append(Counted(changes.others, Text::OneOtherChanged, Text::OthersChanged));
    add(parts, changes.newlyDead, Text::CountNewlyDead);
    add(parts, changes.noLongerDead, Text::CountNoLongerDead);
    add(parts, changes.unreadable, Text::CountNotReadable);
    return parts.join(QStringLiteral("; "));
}
