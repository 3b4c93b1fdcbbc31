// The exports of the shown folder's clips: the commands, their sheets and alerts. The documents are made by
// XmemlExport, TextExport and TableExport, on a thread of their own and from copies of the records, so that
// the window stays alive. Owned by the Clip Manager; main thread.
#pragma once

#include "clipmanager/ExportDocument.h"
#include "clipstore/ClipInfo.h"
#include "platform/ProgressSheet.h"

#include <QDialog>
#include <QPointer>

#include <vector>

class QPushButton;
class QRadioButton;

namespace marquill {

class ClipExports : public QObject {
    Q_OBJECT

  public:
    /// What the text export writes.
    enum class TextExportOption { userReadable = 0, tabDelimited = 1, commaDelimited = 2 };

    /// Where the clips come from.
    struct Source {
        std::function<std::optional<QString>()> clipFolder;  ///< the shown folder's path, or nothing
        std::function<std::vector<ClipInfo>()> clipArray;    ///< its clips in the order of the table
        /// What is to be said of an export of so many clips, as the table shows fewer; "" for nothing.
        std::function<QString(qsizetype clips)> note = {};
    };

    /// The exports of what `window` shows; both must outlive them.
    ClipExports(QWidget& window, Source source);
    /// An export that is not yet being written is given up.
    ~ClipExports() override;

    /// The option that was chosen last. It is the program's, and 0 at every start.
    static TextExportOption textExportOption();

    /// Asks for a file and writes the clips into it as an "xmeml" document.
    void exportClipListAsXML();
    /// Asks for a layout and a file and writes the clips into it as text.
    void exportClipListAsText();
    /// Whether a document is being made; the commands do nothing then.
    bool isExporting() const { return _progress.isRunning(); }

    /// The options sheet while it is shown, or null.
    QDialog* textExportOptionsSheet() const { return _textExportOptions; }
    void okTextExportOptionsSheet();
    void cancelTextExportOptionsSheet();
    ProgressSheet& progress() { return _progress; }

  private:
    using Export = std::function<Result<void>(const std::vector<ClipInfo>&, const ExportProgress&)>;

    bool hasClips();
    std::optional<QString> chooseFile(const QString& suffix);
    void exportClipsAsXMLPanelDidEnd(const QString& chosen);
    void exportClipsAsTextPanelDidEnd(const QString& chosen);
    void doExport(const Export& write, const std::function<void(const Error&)>& failed);
    void showTextExportOptions();
    Result<void> loadTextExportOptions();
    void didEndSheet();
    void alert(const QString& title, const QString& text, const QString& button = tr("Ok"));

    QWidget& _window;
    Source _source;
    ProgressSheet _progress;
    QPointer<QDialog> _textExportOptions;
    QString _folder;  // that is being exported
    QString _note;    // what is to be said of it

    // In the options sheet.
    QRadioButton* _exportAsTextOptions_UserReadable = nullptr;
    QRadioButton* _exportAsTextOptions_TabDelimited = nullptr;
    QRadioButton* _exportAsTextOptions_CommaDelimited = nullptr;
    QPushButton* _okButton = nullptr;
    QPushButton* _cancelButton = nullptr;
};

}  // namespace marquill
