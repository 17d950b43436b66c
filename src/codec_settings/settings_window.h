/// The window of the settings program: one page or two, and what is done with the values.
#pragma once

#include "codec_settings/settings_page.h"
#include "codec_settings/texts.h"
#include "platform/codec/codec_file.h"

#include <QWidget>

#include <string_view>
#include <vector>

class QLabel;
class QVBoxLayout;

namespace tandrel
{

/// Which pages there are.
enum class CodecPages { Picture, Sound, Both };

class SettingsWindow : public QWidget
{
public:
    /// The file and its values of now. `language` as two capital letters. The file outlives the window.
    SettingsWindow(CodecPages pages, CodecFile& file, std::string_view language);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void addTabs(QVBoxLayout& column, const std::vector<QWidget*>& panels);
    QWidget* makePanel(SettingsPage::Kind kind);
    QWidget* makeFooter();
    void apply();
    void takeDefaults();
    void tell(std::string_view key);

    const CodecPages pages_;
    CodecFile& file_;
    const CodecTexts texts_;
    CodecSettings values_;
    std::vector<SettingsPage*> shown_;
    QLabel* status_ = nullptr;
};

} // namespace tandrel
