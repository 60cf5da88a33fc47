#!/usr/bin/env bash
# A throwaway PostgreSQL cluster for the server tests, in a folder of its own.
#   test-postgres.sh start DIR   makes a cluster in DIR, starts it on a unix socket in DIR and
#                                writes its connection address to DIR/uri
#   test-postgres.sh stop DIR    stops it and removes DIR
#   test-postgres.sh halt DIR    stops it as an administrator would (fast shutdown), keeping DIR
#   test-postgres.sh kill DIR    kills the server and every process of it at once (SIGKILL), as
#                                a crash of the machine would, keeping DIR
#   test-postgres.sh restart DIR starts the cluster in DIR again after halt or kill
# Run as root, the cluster belongs to the `postgres` system user (the server refuses root).
# Exit code 77 when PostgreSQL is not installed, so that the tests that need it skip.
set -euo pipefail

action=${1:-}
dir=${2:-}
if [ -z "$action" ] || [ -z "$dir" ]; then
  echo "usage: $0 start|stop|halt|kill|restart DIR" >&2
  exit 2
fi

bin=$(ls -d /usr/lib/postgresql/*/bin 2>/dev/null | sort -V | tail -n 1 || true)
if [ -z "$bin" ] || [ ! -x "$bin/initdb" ]; then
  echo "PostgreSQL is not installed (apt-get install postgresql); the server tests are skipped" >&2
  exit 77
fi

# Runs a server program as the cluster's owner.
as_owner() {
  if [ "$(id -u)" -eq 0 ]; then
    runuser -u postgres -- "$@"
  else
    "$@"
  fi
}

start() {
  stop_quietly
  mkdir -p "$dir"
  [ "$(id -u)" -eq 0 ] && chown postgres: "$dir"
  chmod 700 "$dir"
  as_owner "$bin/initdb" -D "$dir/data" -U postgres -A trust -E UTF8 --locale=C.UTF-8 >"$dir/initdb.log"
  launch
  as_owner "$bin/createdb" -h "$dir" -U postgres vordpm_test
  echo "postgresql:///vordpm_test?host=$dir&user=postgres" >"$dir/uri"
  chmod 755 "$dir"
  cat "$dir/uri"
}

# No TCP: the socket in the folder is the only way in, so parallel runs never collide.
launch() {
  as_owner "$bin/pg_ctl" -D "$dir/data" -l "$dir/server.log" -w -t 60 \
    -o "-c listen_addresses='' -k $dir -c fsync=off" start >/dev/null
}

halt() {
  as_owner "$bin/pg_ctl" -D "$dir/data" -m fast -w -t 60 stop >/dev/null
}

# The postmaster is frozen first so that it starts no process between the listing of its
# children and the kill. Where nothing reaps the dead (a container's first process may not), they
# stay as zombies whose ids would make the next start take postmaster.pid and the socket's lock
# file for a live server's, so both go once every process is dead.
kill_all() {
  local postmaster pids
  postmaster=$(head -n 1 "$dir/data/postmaster.pid")
  kill -STOP "$postmaster"
  pids=$(echo "$postmaster" $(ps -o pid= --ppid "$postmaster") | tr ' ' ',')
  kill -KILL ${pids//,/ }
  for _ in $(seq 200); do
    if ! ps -o stat= -p "$pids" | grep -qv '^Z'; then
      rm -f "$dir/data/postmaster.pid" "$dir"/.s.PGSQL.*
      return 0
    fi
    sleep 0.05
  done
  echo "the server $postmaster outlived SIGKILL" >&2
  exit 1
}

stop_quietly() {
  if [ -f "$dir/data/postmaster.pid" ]; then
    as_owner "$bin/pg_ctl" -D "$dir/data" -m fast -w stop >/dev/null 2>&1 || true
  fi
  rm -rf "$dir"
}

case "$action" in
  start) start ;;
  stop) stop_quietly ;;
  halt) halt ;;
  kill) kill_all ;;
  restart) launch ;;
  *)
    echo "usage: $0 start|stop|halt|kill|restart DIR" >&2
    exit 2
    ;;
esac
