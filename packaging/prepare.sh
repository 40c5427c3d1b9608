# Shared by ./run and ./test; sourced with the root of the project as the working directory.

# The packages of packages.txt that are not installed yet.
missing_packages() {
  local package
  for package in $(sed 's/#.*//' packages.txt); do
    dpkg-query -W -f '${db:Status-Status}\n' "$package" 2>/dev/null | grep -qx installed ||
      printf '%s\n' "$package"
  done
}

install_packages() {
  local missing
  missing=$(missing_packages)
  [ -n "$missing" ] || return 0
  echo "Installing:" $missing
  local sudo=
  [ "$(id -u)" -eq 0 ] || sudo=sudo
  $sudo apt-get update -qq
  # The database server that the package would start is not used: the program runs its own.
  # shellcheck disable=SC2086
  $sudo env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $missing
}

# Configures a preset and builds a target of it, all of it without one.
build() {
  cmake --preset "$1" >/dev/null
  cmake --build --preset "$1" --target "${2:-all}"
}
