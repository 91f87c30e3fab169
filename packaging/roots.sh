# Debian roots in a folder, to build or to try packages in. To be sourced after tools/setup.sh, by the
# administrator.

# make_root FOLDER makes a bare Debian 12 there.
make_root() {
    rm -rf "$1"
    mkdir -p "$1"
    debootstrap --variant=minbase bookworm "$1" ${DEBIAN_MIRROR:+"$DEBIAN_MIRROR"} >&2
    cp /etc/resolv.conf "$1/etc/resolv.conf"
    # Nothing in a root is started as a service.
    printf '#!/bin/sh\nexit 101\n' >"$1/usr/sbin/policy-rc.d"
    chmod 755 "$1/usr/sbin/policy-rc.d"
}

# in_root FOLDER COMMAND... runs a command there, with nothing of this machine's environment.
in_root() {
    local folder=$1
    shift
    chroot "$folder" /usr/bin/env -i HOME=/root LANG=C.UTF-8 DEBIAN_FRONTEND=noninteractive \
        ${http_proxy:+http_proxy="$http_proxy"} ${https_proxy:+https_proxy="$https_proxy"} \
        PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin "$@"
}

# install_in_root FOLDER PACKAGE...
install_in_root() {
    local folder=$1
    shift
    in_root "$folder" apt-get update -q >&2
    in_root "$folder" apt-get install -q -y --no-install-recommends "$@" >&2
}
