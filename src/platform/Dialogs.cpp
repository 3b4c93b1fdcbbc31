#include "platform/Dialogs.h"

#include "platform/Files.h"

#include <QAbstractItemView>
#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QListView>
#include <QMessageBox>
#include <QPushButton>
#include <QTreeView>

namespace marquill {

namespace {

QStringList nameFilters(const QStringList& suffixes) {
    QStringList patterns;
    for (const QString& suffix : suffixes) {
        patterns.append(u"*."_s + suffix);
    }
    return patterns.isEmpty() ? QStringList() : QStringList(patterns.join(u' '));
}

std::optional<QString> oneChosen(QFileDialog& chooser) {
    chooser.setWindowModality(Qt::WindowModal);
    if (chooser.exec() != QDialog::Accepted || chooser.selectedFiles().isEmpty()) {
        return std::nullopt;
    }
    return chooser.selectedFiles().constFirst();
}

/// Begins where the choice says, or where the last one was left; the first one at home, and not in whatever
/// folder the program was started.
class Chooser : public QFileDialog {
  public:
    Chooser(QWidget* window, const FileChoice& choice)
        : QFileDialog(window, choice.title, choice.startFolder) {
        if (choice.startFolder.isEmpty() && directory() == QDir::current()) {
            setDirectory(QDir::home());
        }
    }
};

class ToolkitDialogs : public Dialogs {
  public:
    int alert(QWidget* window, const Alert& alert) override {
        QMessageBox box(window);
        box.setIcon(QMessageBox::Warning);
        box.setWindowTitle(alert.title);
        box.setText(u"<b>"_s + alert.title.toHtmlEscaped() + u"</b>"_s);
        box.setInformativeText(alert.text);
        box.setTextFormat(Qt::RichText);
        QList<QAbstractButton*> buttons;
        for (const QString& text : alert.buttons) {
            buttons.append(box.addButton(text, QMessageBox::ActionRole));
        }
        box.setDefaultButton(qobject_cast<QPushButton*>(buttons.first()));
        box.setEscapeButton(buttons.value(alert.cancelButton));
        box.exec();
        return std::max(0, static_cast<int>(buttons.indexOf(box.clickedButton())));
    }

    QStringList chooseFolders(QWidget* window, const FileChoice& choice) override {
        Chooser chooser(window, choice);
        chooser.setFileMode(QFileDialog::Directory);
        chooser.setOption(QFileDialog::ShowDirsOnly);
        // Desktops' own choosers take one folder only.
        chooser.setOption(QFileDialog::DontUseNativeDialog);
        chooser.setWindowModality(Qt::WindowModal);
        for (QAbstractItemView* list : chooser.findChildren<QAbstractItemView*>()) {
            if (qobject_cast<QListView*>(list) || qobject_cast<QTreeView*>(list)) {
                list->setSelectionMode(QAbstractItemView::ExtendedSelection);
            }
        }
        return chooser.exec() == QDialog::Accepted ? chooser.selectedFiles() : QStringList();
    }

    std::optional<QString> chooseFolder(QWidget* window, const FileChoice& choice) override {
        Chooser chooser(window, choice);
        chooser.setFileMode(QFileDialog::Directory);
        chooser.setOption(QFileDialog::ShowDirsOnly);
        return oneChosen(chooser);
    }

    std::optional<QString> chooseFile(QWidget* window, const FileChoice& choice) override {
        Chooser chooser(window, choice);
        chooser.setFileMode(QFileDialog::ExistingFile);
        chooser.setNameFilters(nameFilters(choice.suffixes));
        return oneChosen(chooser);
    }

    QStringList chooseFiles(QWidget* window, const FileChoice& choice) override {
        Chooser chooser(window, choice);
        chooser.setFileMode(QFileDialog::ExistingFiles);
        chooser.setNameFilters(nameFilters(choice.suffixes));
        chooser.setWindowModality(Qt::WindowModal);
        return chooser.exec() == QDialog::Accepted ? chooser.selectedFiles() : QStringList();
    }

    std::optional<QString> chooseFileToSave(QWidget* window, const FileChoice& choice) override {
        Chooser chooser(window, choice);
        chooser.setAcceptMode(QFileDialog::AcceptSave);
        chooser.setFileMode(QFileDialog::AnyFile);
        chooser.setNameFilters(nameFilters(choice.suffixes));
        chooser.setDefaultSuffix(choice.suffixes.value(0));
        chooser.selectFile(choice.fileName);
        if (!choice.prompt.isEmpty()) {
            chooser.setLabelText(QFileDialog::Accept, choice.prompt);
        }
        chooser.setWindowModality(Qt::WindowModal);
        while (chooser.exec() == QDialog::Accepted) {
            const QString path = chooser.selectedFiles().value(0);
            if (mayTake(chooser, path, choice)) {
                return path;
            }
        }
        return std::nullopt;
    }

  private:
    /// The chooser has asked about the name as it was chosen, and knows nothing of the suffix to come.
    static bool mayTake(QWidget& chooser, const QString& path, const FileChoice& choice) {
        const QString suffix = choice.suffixes.value(0);
        if (suffix.isEmpty() || pathExtension(path) == suffix) {
            return true;
        }
        const QString name = lastPathComponent(path) + u'.' + suffix;
        return !fileExists(path + u'.' + suffix) ||
               QMessageBox::question(
                   chooser.parentWidget(), chooser.windowTitle(),
                   QCoreApplication::translate("Dialogs", "%1 already exists. Do you want to replace it?")
                       .arg(name)) == QMessageBox::Yes;
    }
};

Dialogs* installed = nullptr;

}  // namespace

Dialogs& Dialogs::current() {
    static ToolkitDialogs toolkit;
    return installed ? *installed : toolkit;
}

void Dialogs::install(Dialogs* dialogs) {
    installed = dialogs;
}

}  // namespace marquill
