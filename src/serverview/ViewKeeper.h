#pragma once

#include "serverview/KeptTree.h"
#include "serverview/splitter.h"

#include <set>
#include <string>

namespace velk {

// Keeps the view as the user leaves it, for its next life: reads what was kept when it begins, and writes what he
// changes, at most once a second, and at the end. What cannot be read or written is as if nothing had been kept.
class ViewKeeper {
public:
    explicit ViewKeeper(ViewParts& parts) : m_parts(parts), m_tree(parts) {}

    // The owner's timer tells when to write; the panes are there.
    void begin(HWND owner, Splitter& splitter) noexcept;
    // Writes what is left to be written, and keeps nothing more.
    void end() noexcept;
    // Whether the timer is the keeper's.
    bool useTimer(WPARAM timer) noexcept;

    // The mouse was used: the splitter may stand elsewhere.
    void lookAtSplitter() noexcept;
    // Whether the filter strip was open, and is.
    bool isFilterOpen() const noexcept { return m_isFilterOpen; }
    void setFilterOpen(bool isOpen) noexcept;

    // A project came, or has another file: that is another project, with the tree that is there.
    void projectCame(const std::wstring& path) noexcept;
    void projectIsAt(const std::wstring& path) noexcept;
    KeptTree& tree() noexcept { return m_tree; }

private:
    void writeLater() noexcept;
    void write() noexcept;
    void writeProject() noexcept;

    ViewParts& m_parts;
    KeptTree m_tree;
    HWND m_owner = nullptr; // null while nothing is kept
    Splitter* m_splitter = nullptr;
    int m_treeWidth = 0; // as it was kept, in twips
    bool m_isFilterOpen = false;
    std::wstring m_project; // its name in the store, empty: none
    // What is to be written.
    bool m_isWaiting = false; // for the timer
    bool m_isTreeWidthNew = false;
    bool m_isFilterNew = false;
    bool m_isProjectNew = false;
    std::set<int32_t> m_newColumns; // by kind of folder
};

} // namespace velk
