#pragma once

#include "core/ClientYear.h"
#include "core/app/Folders.h"
#include "core/app/Ini.h"
#include "core/database/Connection.h"
#include "core/database/PrivateServer.h"
#include "core/database/Schema.h"
#include "core/platform/FileLock.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <vector>

namespace quorvane::app {

/// How far windows, designed for 800 by 600 pixels, are stretched.
struct ScreenFactors {
  float horizontal = 1;
  float vertical = 1;
};

/// The factors by section "ScrReso" of the screen settings. "Opt" 0 (also when missing) stretches
/// to the screen, 1 to the resolution "X" by "Y" (where 0 means the screen's), anything else not at
/// all. Screen sizes in pixels.
ScreenFactors SetScreenFactors(const IniFile& screen_ini, int screen_width, int screen_height);

/// Proof that this process is the only copy of the program working in an application folder. Ends
/// with the object or with the process, so that a program that crashed does not keep others out.
class SingleCopy {
 public:
  /// nullopt while another copy holds the folder; at once, without waiting. Makes the folder when
  /// it is missing; throws std::runtime_error when it cannot be used.
  static std::optional<SingleCopy> Take(const QString& application_folder);

 private:
  explicit SingleCopy(platform::FileLock lock);

  platform::FileLock lock_;
};

/// What the whole program shares, passed by reference. Made by StartUp.
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

/// Shown with the critical-stop icon to the user who starts a second copy.
inline constexpr char kPreviousInstance[] =
    "A Previous Instance of the Application is Already Running.";

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

/// The client and year that a window opens for; throws std::runtime_error while none is chosen.
ClientYear CurrentOf(const Session& session);

/// "Payment To Broker - SUNANDA RAGHAV - 2011-12": what the window does, and for whom.
QString ClientTitle(const QString& title, const Session& session);

}  // namespace quorvane::app
