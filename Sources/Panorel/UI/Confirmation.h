#pragma once

#include <QString>

#include <functional>

class QWidget;

namespace Panorel {

/// What is asked before something is lost.
struct Confirmation {
    QString question; ///< "Delete “Writing”?"
    QString loss;     ///< what can't be had back then, in a sentence
    QString verb;     ///< on the button that does it: "Delete"
};

/// Asks in a small window that belongs to the parent's. It returns at once; `confirmed` is called
/// when the user agrees, and neither when they cancel nor when the parent goes first. Cancel has
/// the keyboard.
void confirm(QWidget *parent, const Confirmation &confirmation, std::function<void()> confirmed);

} // namespace Panorel
