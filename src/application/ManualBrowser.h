// A page of the manual on the screen: Markdown with its pictures, and links that are followed. Main thread.
#pragma once

#include <QTextBrowser>

namespace marquill {

/// Links to other pages and to headings are followed here; those into the web go to the desktop's browser.
class ManualBrowser : public QTextBrowser {
    Q_OBJECT

  public:
    explicit ManualBrowser(QWidget* parent = nullptr);

    /// Pictures are no wider than a page, and as fine as the screen is.
    QVariant loadResource(int type, const QUrl& name) override;

    /// Selects the next place where `text` stands, from the top again after the last; false: nowhere.
    bool findNext(const QString& text);

  protected:
    void doSetSource(const QUrl& url, QTextDocument::ResourceType type) override;

  private:
    void follow(const QUrl& link);
    void showHeading(const QString& anchor);
};

}  // namespace marquill
