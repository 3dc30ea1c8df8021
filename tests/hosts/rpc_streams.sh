#!/bin/sh
# rpc_streams.sh [EMULATOR...] QUORKIT: programs that members start read no requests of a
# session, and write nothing among its answers.
set -eu
child='sh -c \"cat; echo hello; exit 3\"'
[ $# = 1 ] || child='cmd /c \"echo hello & exit 3\"'
invoke() {
  printf '{"jsonrpc":"2.0","id":%s,"method":"invoke","params":{"class":"%s","member":"%s","args":["%s"]}}\n' "$@"
}
answers=$({
  invoke 1 GQuorProgram ExecuteAndWaitEx "$child"
  invoke 2 GQuorTools isHex 1F
} | "$@" rpc 2>/dev/null | sed 's/.*"result":\([^}]*\)}}/\1/')
[ "$answers" = "3
true" ] || { echo "wrong answers: $answers"; exit 1; }
