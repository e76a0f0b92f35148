// The files of a directory of this machine, as a list view shows them.
#pragma once

#include <gesso/gesso.h>

#include <string>
#include <vector>

namespace gallery {

struct File
{
    std::wstring name;
    std::wstring type;
    std::wstring sizeText;
    std::wstring dateText;
    bool fFolder;
    ULONGLONG size;
    ULONGLONG date;
    UINT image;     // in the system's image lists
    UINT typeIndex; // among the types, in the order in which they first come
};

struct Folder
{
    std::wstring path;
    std::vector<File> files;
    std::vector<std::wstring> types;
};

Folder ReadFolder(const std::wstring& path);

// Reads a directory file by file, for a program that goes on meanwhile.
class FolderReader
{
public:
    explicit FolderReader(const std::wstring& path);

    // Returns how much is read by then, in thousandths. With nothing left it does nothing.
    UINT ReadNext();
    // What is read so far.
    Folder& Result() { return m_folder; }

private:
    std::vector<WIN32_FIND_DATAW> m_found; // the names, which come at once
    size_t m_nRead = 0;
    Folder m_folder;
};

// The system directory, which every machine has.
Folder ReadSystemFolder();

struct Subfolder
{
    std::wstring name;
    bool fHasSubfolders;
};

// The directories in a directory, by name.
std::vector<Subfolder> SubfoldersOf(const std::wstring& path);

// The system's images of files, in both sizes; they stay the system's.
HIMAGELIST SmallFileImages();
HIMAGELIST LargeFileImages();
// In both of them.
UINT FolderImage();

} // namespace gallery
