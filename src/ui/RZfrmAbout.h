#pragma once

#include "window/dialog.h"

namespace velk {

// The add-in's about box: a title, a version line, a description and a button that closes it. All texts are the tool's.
class RZfrmAbout : public Dialog {
public:
    // The controls' numbers.
    enum Control : int { cmdClose = IDCANCEL, lblTitle = 100, lblVersion, lblDescription };

    void Form_Load();

protected:
    void onCommand(int id, int notification) override;

private:
    void cmdClose_Click();
};

// Shows the about box and waits until it is closed.
void showAboutBox();

} // namespace velk
