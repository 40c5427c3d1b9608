#pragma once

#include "core/ClientYear.h"
#include "core/app/Folders.h"
#include "core/app/ScreenFactors.h"
#include "core/app/SingleCopy.h"
#include "core/database/Connection.h"
#include "core/database/PrivateServer.h"
#include "core/database/Schema.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <vector>

namespace quorvane::app {

/// What the whole program shares, passed by reference to whoever needs it. Made by StartUp.
struct Session {
  Folders folders;
  std::optional<SingleCopy> single_copy;
  std::unique_ptr<database::PrivateServer> server;  ///< none with an external database
  std::unique_ptr<database::Connection> connection;
  bool read_only = false;  ///< the disk is full: see PrivateServer::IsReadOnly
  std::vector<database::SkippedStatement> skipped;  ///< what the set-up of the tables left out
  ScreenFactors screen_factors;
  std::optional<ClientYear> current;  ///< the client and year the windows work in
  QString current_client_name;
  QString target;  ///< the menu's target name, the report mode
};

struct ScreenSize {
  int width = 800;   ///< pixels
  int height = 600;  ///< pixels
};

struct StartUpOptions {
  QString application_folder;
  QString shipped_data;                  ///< folder of the files that are copied to Data/
  bool single_copy = false;              ///< refuse to be a second copy; for the desktop program
  std::optional<ScreenSize> screen;      ///< none without windows
  std::function<void()> on_first_start;  ///< the database folder is about to be made
};

/// Another copy of the program works in this application folder. what() is the text to show.
class AlreadyRunning : public std::runtime_error {
 public:
  AlreadyRunning() : std::runtime_error(kPreviousInstance) {}
};

/// Makes sure of a single copy, fixes the folders, opens the database, brings its tables up to date
/// and computes the screen factors, in that order. Throws AlreadyRunning, DatabaseError or
/// std::runtime_error, also for a server that the program cannot work with; nothing is left running
/// then.
std::unique_ptr<Session> StartUp(const StartUpOptions& options);

}  // namespace quorvane::app
