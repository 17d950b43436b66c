/// The help: what the console's buttons, the mouse and the keys do.
#pragma once

#include "toolkit/form.h"

namespace tandrel
{

struct HelpRow;
struct HelpPitch;

class frmHelp : public Form
{
public:
    frmHelp();
    ~frmHelp() override;

    /// One description a row, `Label1` to `Label17` without a `Label15`, by their numbers.
    Label& description(int number);
    /// The pictures in front of it.
    std::vector<const Image*> pictures(int number) const;

    CommandButton cmdOK{*this, "cmdOK", {7440, 9240, 1440, 480}, "&Close"};
    /// The list of all keys.
    CommandButton cmdKeys{*this, "cmdKeys", {330, 9240, 1440, 480}, "&Keys"};

protected:
    void onLoad() override;

private:
    struct Row;
    void addRows(const HelpPitch& pitch);
    /// The place below the line.
    Long addLine(const Text& name, Long top, const HelpPitch& pitch);
    void addKeys(Long top, const HelpPitch& pitch);
    void sayKeys();

    std::vector<std::unique_ptr<Row>> rows_;
    std::vector<std::unique_ptr<Image>> drawings_;
    std::unique_ptr<Label> keysTitle_;
    std::vector<std::unique_ptr<Label>> keyTexts_;
    std::vector<std::unique_ptr<Label>> keyNames_;
};

} // namespace tandrel
