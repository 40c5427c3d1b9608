#!/usr/bin/env bash
# A cluster of three database servers on the loopback, for tests.
#
#   nodes.sh FOLDER COMMAND...
#
# COMMAND finds the ports in $NODE1 $NODE2 $NODE3 and the servers' process ids in $FOLDER/nN.pid; the
# user is quorvane, without a password, the database quorvane. `nodes.sh FOLDER --join N` starts node
# N again after it was killed; COMMAND calls it. The servers end with COMMAND.
# Needs mariadb-server, galera-4 and rsync.
set -euo pipefail
base=$1; shift
first=${QUORVANE_CLUSTER_PORT:-21300}
export NODE1=$((first + 1)) NODE2=$((first + 2)) NODE3=$((first + 3))

# Of a node: group 10 ports further for each, then the one for changes missed, then for whole copies.
group() { echo $((first + $1 * 10)); }
members=127.0.0.1:$(group 1),127.0.0.1:$(group 2),127.0.0.1:$(group 3)

# The server drops its rights when root starts it; elsewhere it runs as who tests.
as=()
if [ "$(id -u)" = 0 ]; then as=(--user=mysql); fi

sql() { mariadb --no-defaults -uroot -h127.0.0.1 "-P$((first + $1))" -Nse "$2"; }

start() {   # number, address of the cluster
  local n=$1 dir=$base/n$1 group
  group=$(group "$n")
  if [ ! -d "$dir/mysql" ]; then
    mariadb-install-db --no-defaults --datadir="$dir" --auth-root-authentication-method=normal \
      --skip-test-db "${as[@]}" >/dev/null 2>&1
  fi
  mariadbd --no-defaults "${as[@]}" --datadir="$dir" --port=$((first + n)) --bind-address=127.0.0.1 \
    --socket="$dir/s.sock" --lower-case-table-names=1 --character-set-server=utf8mb4 \
    --binlog-format=ROW --innodb-autoinc-lock-mode=2 --innodb-flush-log-at-trx-commit=0 \
    --innodb-buffer-pool-size=64M --innodb-log-file-size=16M --pid-file="$dir/server.pid" \
    --wsrep-on=ON --wsrep-provider=/usr/lib/galera/libgalera_smm.so --wsrep-cluster-name=quorvane \
    --wsrep-cluster-address="$2" --wsrep-node-address=127.0.0.1 --wsrep-sst-method=rsync \
    --wsrep-sst-receive-address=127.0.0.1:$((group + 2)) \
    --wsrep-provider-options="base_host=127.0.0.1;base_port=$group;ist.recv_addr=127.0.0.1:$((group + 1));gmcast.listen_addr=tcp://127.0.0.1:$group;gcache.size=64M" \
    >>"$base/n$n.log" 2>&1 &
  echo $! >"$base/n$n.pid"
  for _ in $(seq 1 600); do
    [ "$(sql "$n" "show status like 'wsrep_ready'" 2>/dev/null | cut -f2)" = ON ] && return 0
    kill -0 "$(cat "$base/n$n.pid")" 2>/dev/null || break
    sleep 0.1
  done
  echo "node $n did not come up" >&2
  tail -20 "$base/n$n.log" >&2
  return 1
}

stop() {
  for pid in "$base"/n?.pid; do
    [ -e "$pid" ] && kill "$(cat "$pid")" 2>/dev/null
  done
  for pid in "$base"/n?.pid; do
    while [ -e "$pid" ] && kill -0 "$(cat "$pid")" 2>/dev/null; do sleep 0.05; done
  done
  return 0
}

if [ "${1:-}" = --join ]; then
  start "$2" "gcomm://$members"
  exit
fi

mkdir -p "$base"
base=$(cd "$base" && pwd)
if [ "$(id -u)" = 0 ]; then chown mysql "$base"; fi
export FOLDER=$base
trap stop EXIT
start 1 gcomm://
sql 1 "create database if not exists quorvane character set utf8mb4;
  create user if not exists quorvane@'127.0.0.1' identified by '';
  grant all on quorvane.* to quorvane@'127.0.0.1'; grant reload on *.* to quorvane@'127.0.0.1'"
start 2 "gcomm://$members"
start 3 "gcomm://$members"
"$@"
