# The sample PC switched off: perl make_disk.pl SAMPLE DISK
#
# DISK, which is there, gets what the sample has on drive C, and its registry in hives as they lie on
# a disk of Windows. They are made with the library that the program writes hives with, each out of
# the smallest one there is.
use strict;
use warnings;
use Encode;
use File::Path 'make_path';
use Win::Hivex;

my ($sample, $disk) = @ARGV;
my $user = 'HKEY_USERS\S-1-5-21-0-0-0-1000';
# Where keys of the export lie on the disk; of two that fit the first counts.
my @places = (
    ['HKEY_LOCAL_MACHINE\SYSTEM\CurrentControlSet', 'SYSTEM', 'ControlSet002'],
    ['HKEY_LOCAL_MACHINE\SYSTEM',                   'SYSTEM', ''],
    ['HKEY_LOCAL_MACHINE\SOFTWARE',                 'SOFTWARE', ''],
    ["$user\\Software\\Classes",                    'UsrClass.dat', ''],
    [$user,                                         'NTUSER.DAT', '']);
my %folders = (
    'SOFTWARE'     => 'Windows/System32/Config',
    'SYSTEM'       => 'Windows/System32/Config',
    'NTUSER.DAT'   => 'Users/anna',
    'UsrClass.dat' => 'Users/anna/AppData/Local/Microsoft/Windows');
my %hives;

# A header, and one bin with the root key, its security record and a free cell.
sub empty_hive {
    my $none = 0xFFFFFFFF;
    my $cell = sub { my $size = length($_[0]) + 11 & ~7; pack "l<a" . ($size - 4), -$size, $_[0] };
    my $root = sub {
        $cell->('nk' . pack 'v L<18 v2 a4', 0x2C, (0) x 6, $none, $none, 0, $none, $_[0], $none,
            (0) x 6, 4, 0, 'ROOT');
    };
    my $security = 32 + length $root->(0);
    my $cells = $root->($security) . $cell->("sk\0\0" . pack 'L<4 C a19', $security, $security, 1,
        20, 1, "\0\x04\x80");
    my $bin = 'hbin' . pack('L<7', 0, 4096, (0) x 5) . $cells;
    $bin .= pack 'L<a*', 4096 - length $bin, "\0" x (4092 - length $bin);
    my $base = 'regf' . pack 'L<11 x460', 1, 1, 0, 0x01D00000, 1, 5, 0, 1, 32, 4096, 1;
    my $sum = 0;
    $sum ^= $_ for unpack 'L<127', $base;
    return pack('a508 L<', $base, $sum) . "\0" x 3584 . $bin;
}

sub hive {
    my ($name) = @_;
    return $hives{$name} if $hives{$name};
    my $file = "$disk/$folders{$name}/$name";
    make_path("$disk/$folders{$name}");
    open my $out, '>:raw', $file or die "$file: $!\n";
    print $out empty_hive();
    close $out;
    return $hives{$name} = Win::Hivex->open($file, write => 1);
}

sub key_in {
    my ($name, $path) = @_;
    my $hive = hive($name);
    my $key  = $hive->root;
    for my $part (split /\\/, $path) {
        $key = $hive->node_get_child($key, $part) // $hive->node_add_child($key, $part);
    }
    return $key;
}

sub set {    # in a hive that is open, and keys that are made when they are missing
    my ($name, $path, $value, $type, $data) = @_;
    hive($name)->node_set_value(key_in($name, $path), { key => $value, t => $type, value => $data });
}
sub text { return encode('UTF-16LE', "$_[0]\0") }

sub unescaped { my ($text) = @_; $text =~ s/\\(.)/$1/gs; return $text }

sub type_and_data {
    my ($data) = @_;
    return (1, text(unescaped($1))) if $data =~ /^"(.*)"$/s;
    return (4, pack 'L<', hex $1) if $data =~ /^dword:(.*)$/;
    return (hex($1 // 3), pack 'H*', $2 =~ s/[,\s\\]//gr) if $data =~ /^hex(?:\((.*)\))?:(.*)$/s;
    die "make_disk: $data\n";
}

my $name = qr/\@|"(?:[^"\\]|\\.)*"/s;
my $file = "$sample/registry.reg";
open my $in, '<:raw', $file or die "$file: $!\n";
my $export = decode('cp1252', do { local $/; <$in> });
$export =~ s/\r\n/\n/g;
my ($hive, $path);
while ($export =~ /^(?:\[(.*)\]|($name)=("(?:[^"\\]|\\.)*"|(?:[^\\\n]|\\\n)*))$/mg) {
    my ($full, $value, $data) = ($1, $2, $3);
    if (defined $full) {
        my ($place) = grep { "$full\\" =~ /^\Q$_->[0]\E\\/i } @places;
        ($hive, $path) = $place ? @$place[1, 2] : ();
        next unless $place;
        $path .= substr $full, length $place->[0];
        $path =~ s/^\\//;
        key_in($hive, encode('UTF-8', $path));
    } elsif (defined $hive) {
        $value = $value eq '@' ? '' : unescaped(substr $value, 1, -1);
        set($hive, encode('UTF-8', $path), encode('UTF-8', $value), type_and_data($data));
    }
}

# What a disk's registry tells and an export of a running PC need not.
my $windows = 'Microsoft\Windows NT\CurrentVersion';
set('SOFTWARE', $windows, 'SystemRoot', 1, text('C:\Windows'));
set('SOFTWARE', "$windows\\ProfileList\\" . substr($user, 11), 'ProfileImagePath', 1,
    text('C:\Users\anna'));
set('SYSTEM', 'ControlSet002\Control\ComputerName\ComputerName', 'ComputerName', 1, text('LINDEN'));
set('SYSTEM', 'Select', 'Current', 4, pack 'L<', 2);
set('SYSTEM', 'MountedDevices', "\\DosDevices\\$_:", 3, 'DMIO:ID:0123456789abcdef') for 'C', 'D';
set('SYSTEM', 'MountedDevices', '\DosDevices\E:', 3, encode('UTF-16LE', '\??\IDE#CdRomHarrow'));
$_->commit(undef) for values %hives;

system('cp', '-a', '--no-preserve=ownership', "$sample/drives/C/.", $disk) == 0 or exit 1;
