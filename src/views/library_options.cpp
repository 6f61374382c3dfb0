#include "views/library_options.h"

#include <QFileDialog>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

#include "widgets/qt_text.h"

LibraryOptions::LibraryOptions(QWidget* parent) : QWidget(parent) {
    const char* const names[Fields] = {"LibraryFolders", "WinePrefix", "RegistryFiles"};
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins({});
    grid->setColumnStretch(1, 1);
    for (int nr = 0; nr < Fields; ++nr) {
        Row& row = rows_[static_cast<std::size_t>(nr)] = {new QLabel, new QLineEdit, new QToolButton};
        row.label->setBuddy(row.text);
        row.text->setObjectName(QLatin1String(names[nr]));
        row.choose->setObjectName(QLatin1String("choose") + QLatin1String(names[nr]));
        row.choose->setText(QStringLiteral("…"));
        row.choose->setFocusPolicy(Qt::StrongFocus);
        grid->addWidget(row.label, nr, 0);
        grid->addWidget(row.text, nr, 1);
        grid->addWidget(row.choose, nr, 2);
        connect(row.text, &QLineEdit::textEdited, this, &LibraryOptions::Changed);
        connect(row.choose, &QToolButton::clicked, this, [this, nr] { Choose(static_cast<Field>(nr)); });
    }
}

void LibraryOptions::Texte() {
    const Text labels[Fields] = {Text::LibraryFolders, Text::WinePrefix, Text::RegistryFiles};
    const Text hints[Fields] = {Text::SeparatedBySemicolons, Text::WinePrefixAutomatic, Text::SeparatedBySemicolons};
    for (std::size_t nr = 0; nr < Fields; ++nr) {
        const QString text = TextNr(labels[nr]);
        rows_[nr].label->setText(text + QLatin1Char(':'));
        rows_[nr].text->setAccessibleName(text);
        rows_[nr].text->setPlaceholderText(TextNr(hints[nr]));
        rows_[nr].choose->setAccessibleName(text + QStringLiteral(": ") + TextNr(Text::Choose));
        rows_[nr].choose->setToolTip(rows_[nr].choose->accessibleName());
    }
}

void LibraryOptions::ShowValues(const Settings& values) {
    rows_[Folders].text->setText(ToPath(JoinList(values.LibraryFolders)));
    rows_[Prefix].text->setText(ToPath(values.WinePrefix));
    rows_[Registry].text->setText(ToPath(JoinList(values.RegistryFiles)));
}

void LibraryOptions::TakeValues(Settings& values) const {
    values.LibraryFolders = SplitList(FromPath(rows_[Folders].text->text()));
    values.WinePrefix = FromPath(rows_[Prefix].text->text().trimmed());
    values.RegistryFiles = SplitList(FromPath(rows_[Registry].text->text()));
}

// A further folder or file joins those that are there; a prefix takes the place of the one before.
void LibraryOptions::Choose(Field field) {
    QFileDialog dialog(this, rows_[field].text->accessibleName());
    dialog.setFileMode(field == Registry ? QFileDialog::ExistingFiles : QFileDialog::Directory);
    if (field == Registry)
        dialog.setNameFilter(QStringLiteral("*.reg"));
    else
        dialog.setOption(QFileDialog::ShowDirsOnly);
    if (dialog.exec() != QDialog::Accepted)
        return;
    QStringList entries = dialog.selectedFiles();
    QLineEdit& text = *rows_[field].text;
    if (field != Prefix && !text.text().trimmed().isEmpty())
        entries.prepend(text.text().trimmed());
    text.setText(entries.join(QLatin1Char(';')));
    Q_EMIT Changed();
}
