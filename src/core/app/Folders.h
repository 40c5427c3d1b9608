#pragma once

#include <QString>

namespace quorvane::app {

/// Where the program keeps its files. No path ends in a separator, except a root.
struct Folders {
  QString application;
  QString temporary;    ///< scratch files; the application folder itself
  QString data;         ///< shipped files: state list, templates
  QString documents;    ///< "SignDocs": scanned documents, a folder a client
  QString market_rate;  ///< "MRate": price files
  QString database;     ///< data folder of the private database server
  QString config_file;  ///< "Confg.ini" in the application folder
  QString screen_ini;   ///< "OrvikConfig.INI": the Windows system folder, elsewhere the user's
                        ///< configuration folder

  /// The folders under an application folder, with or without a separator at its end. Makes none.
  static Folders At(QString application_path);
};

/// The program's own folder when it can be written to and holds nothing but the program, so that
/// program and data can be moved together; else the user's data folder.
QString DefaultApplicationFolder(const QString& program_folder);

/// A folder that is shipped with the program: "shipped" (what is copied to Data), "sample" (the
/// sample portfolio), "docs/user-guide" or "languages". Beside the installed program, else in the
/// project's folder or the one that it is built in; empty when it is in none.
QString ShippedFolder(const QString& program_folder, const QString& name);

/// Copies the files that are missing in the data folder from the folder they are shipped in,
/// subfolders included; files that are there stay as the user made them. Those in subfolders, such
/// as the tax law of the years, belong to the program: they are replaced when it ships others. A
/// copy is whole or absent.
/// Throws std::runtime_error with path and reason.
void InstallShippedFiles(const Folders& folders, const QString& shipped_data_folder);

}  // namespace quorvane::app
