// Fields that the generator pages share: the output file name with its
// extension and overwrite question, a list of layers in which several rows
// are chosen, the question on leaving with an unsaved grid, and the pick of
// a layer by one of its objects.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "drawing/panel_port.h"

// The output file edit: a name without the extension gets it appended; a
// name of an existing file asks "File Exists, Do you want to Overwrite it?"
// and No brings the old name back.
class OutputFileField {
public:
    explicit OutputFileField(std::string extension) : extension_(std::move(extension)) {}

    std::string text;

    // The drawing's folder plus "Untitled" and the extension.
    void setDefault();
    // The field event after the user edited the name.
    void edited();
    // A name chosen in a file dialog (no question: the dialog asked).
    void take(const std::string& path);
    // "Pick a file": the save dialog for the extension.
    void pick();
    const std::string& extension() const { return extension_; }

private:
    std::string extension_;
    std::string previous_;
};

// A list of layers with any number of rows chosen: a list box with multiple
// selection, or a list view with check boxes. A script's `choose` of a row
// turns its choice over; the field shows the chosen rows joined by ",".
class LayerChoiceList {
public:
    std::vector<std::string> rows;
    std::vector<bool> chosen;
    std::string joined;

    // Fills the rows with the drawing's visible layers, none chosen.
    void fill(const std::vector<std::string>& layers);
    // Chooses the row of that layer (compared without case); false when
    // the list has no such row or it is chosen already.
    bool choose(const std::string& layer);
    void unchoose(const std::string& layer);
    bool isChosen(const std::string& layer) const;
    // The control; `onToggled` runs after a row was turned over, with the
    // row's index.
    vorn::PanelControl control(const std::string& caption, std::function<void(size_t)> onToggled = {});
    void toggleByText();

private:
    int rowOf(const std::string& layer) const;
    void join();
};

// An integer field as the dialog checks it on reading: "Please enter an
// integer." for no whole number, "Please enter an integer between %d and
// %d." outside the limits. False (value unchanged) after either message.
bool readIntField(const std::string& text, int low, int high, int& value);

// "The Grid is not saved! Save it?" on leaving the dialog; Yes runs `save`.
void askSaveOnLeaving(bool unsaved, const std::function<void()>& save);

// ERRNO after an object pick: 52 for Enter, 7 when nothing was hit.
int lastPickErrno();

// Loops on object picks with `prompt`: the layer of each picked object is
// chosen in the list when it is not yet, with "\nselected layer: %s".
// `onChosen` runs after each new choice.
void pickLayersByObject(LayerChoiceList& list, const char* prompt, const std::function<void(size_t)>& onChosen = {});
