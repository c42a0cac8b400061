#!/usr/bin/env bash
# Installs the Debian packages that building, testing and running Quorvanta need.
set -euo pipefail
SUDO=""
if [ "$(id -u)" -ne 0 ]; then SUDO="sudo"; fi
export DEBIAN_FRONTEND=noninteractive
$SUDO apt-get update -q
$SUDO apt-get install -y -q --no-install-recommends \
  build-essential cmake ninja-build ccache pkg-config zlib1g-dev libdeflate-dev \
  qtbase5-dev libqt5charts5-dev libqt5svg5-dev qttools5-dev qttools5-dev-tools \
  qttranslations5-l10n libqt5svg5 qt5-image-formats-plugins \
  clang-format poppler-utils
