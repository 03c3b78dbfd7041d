#!/usr/bin/env bash
# Installs every Debian 12 package that the build, the program and the tests need.
set -euo pipefail
SUDO=""
if [ "$(id -u)" -ne 0 ]; then SUDO="sudo"; fi
export DEBIAN_FRONTEND=noninteractive
$SUDO apt-get update -qq
$SUDO apt-get install -y -qq --no-install-recommends \
  build-essential cmake pkg-config \
  libgtest-dev libgmock-dev libbenchmark-dev \
  libx11-dev libxt-dev libmotif-dev libxft-dev libxinerama-dev libxmu-dev libxext-dev \
  libfontconfig-dev fonts-dejavu-core \
  libfftw3-dev libccp4-dev \
  xvfb xauth xdotool imagemagick x11-utils \
  ghostscript libwmf-bin cups-client \
  python3 \
  libavogadro-data
