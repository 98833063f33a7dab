# Writes a PC of some thousand keys: perl generate_pc.pl FOLDER
#
# FOLDER gets registry.reg (16-bit text) and drives/C. It is the same PC each time. About one
# reference in twelve is bad, in all shapes that paths and references take. No key is named with one
# of [ \ ] ^ _ `, which Wine sorts before the letters.
use Encode;
use strict;
use utf8;
use warnings;

my ($folder) = @ARGV;
my $state = 20061104;
my (%keys, %files, @libraries, @classes);

sub chance {    # 0 to the number minus 1
    my ($number) = @_;
    $state = ($state * 1103515245 + 12345) % 2147483648;
    return int($state / 65536) % $number;
}
sub pick { return $_[chance(scalar @_)] }
sub bad  { return chance(12) == 0 }

sub guid {
    return sprintf '{%04X%04X-%04X-%04X-%04X-%04X%04X%04X}', map { chance(32768) } 1 .. 8;
}

my @vendors = ('Alder Works', 'Brine & Co', 'Curlew', 'Dovecote 2.0', 'Ébène', 'Fennel', 'Größe',
    'Hazel-Soft', 'Iris (x86)', 'Juniper', 'Kelp', 'Łódź Audio', 'Malt', 'Nettle', 'Чайка');
my @words = qw(agent bridge core draw edit frame grid host icon jet key link media net page
  queue reader shell tool unit view wave zoom);
my %extensions = (program => 'exe', library => 'dll', type => 'tlb', help => 'hlp', icon => 'ico');

# A file below a program's folder; a good one is on the disk.
sub file {
    my ($kind, $is_bad) = @_;
    my $path = 'C:\Program Files\\' . pick(@vendors) . '\\' . pick(@words) . pick(@words);
    $path .= ($is_bad ? ' gone' : '') . ".$extensions{$kind}";
    $files{$path} = '' unless $is_bad;
    return chance(5) ? $path : pick(uc $path, lc $path);
}

my @decorations = (
    sub { "\"$_[0]\"" }, sub { "\"$_[0]\" /open \"%1\"" }, sub { "$_[0] /silent" },
    sub { "$_[0] -run x" }, sub { "$_[0],-3" }, sub { "$_[0];C:\\other" }, sub { "  $_[0] " },
    sub { "\@$_[0]" },
    sub { "$_[0] %1" }, sub { "rundll32.exe $_[0],Start" }, sub { "Rundll32 $_[0],Start" },
    sub { $_[0] =~ s/C:\\Program Files/%ProgramFiles%/ri }, sub { substr($_[0], 0, -4) },
    sub { $_[0] =~ s{\\}{/}gr }, sub { $_[0] =~ s{[^\\]+$}{}r }, sub { $_[0] =~ s{\\[^\\]+$}{}r },
    sub { "$_[0]\\1" }, sub { "cmd.exe /c $_[0]" }, sub { "D" . substr($_[0], 1) },
    sub { "Q" . substr($_[0], 1) }, sub { "z" . substr($_[0], 1) }, sub { substr($_[0], 1) },
    sub { "%NoSuch%\\$_[0]" }, sub { "$_[0] $_[0]" }, sub { "$_[0] " . 'x' x 260 },
    sub { "\\\\?\\$_[0]" }, sub { "file:///$_[0]" }, sub { "$_[0]\x{201C}" }, sub { "$_[0]\t1" },
    sub { (split /\\/, $_[0])[-1] },
);

# Data that holds a path: half of it plain. Programs come and go more than what they bring along.
sub path_data {
    my $path = file($_[0], chance($_[0] eq 'program' ? 4 : 12) == 0);
    return chance(2) ? $path : pick(@decorations)->($path);
}

sub value {    # value KEY NAME DATA [TYPE]
    my ($key, $name, $data, $type) = @_;
    $keys{$key}{$name} = [$data, $type // (chance(9) ? 'sz' : pick('expand', 'multi'))];
}

sub wide { return pack 'v*', map { ord } split //, $_[0] }

sub written {
    my ($data, $type) = @{ $_[0] };
    return $data if $type eq 'written';
    return '"' . $data =~ s/([\\"])/\\$1/gr . '"' if $type eq 'sz';
    # An expandable text and a list of texts.
    my ($number, $end) = $type eq 'expand' ? (2, "\0") : (7, "\0second\0\0");
    return "hex($number):" . join ',', map { sprintf '%02x', ord } split //, wide($data . $end);
}

my $machine  = 'HKEY_LOCAL_MACHINE\Software';
my $root     = "$machine\\Classes";
my $version  = "$machine\\Microsoft\\Windows\\CurrentVersion";
my @odd_data = ('hex:', 'hex:43,3a,5c,78', 'dword:ffffffff', 'dword:0000002a', 'hex(0):', 'hex:00',
    'hex(b):01,00,00,00,00,00,00,00', 'hex(2):43,00,3a,00,5c,00,00,00', 'hex(7):00,00', '""');

sub odd_value {
    my ($key) = @_;
    value($key, pick('', 'TypeLib', 'ProgID', 'CLSID', 'InprocServer32', 'q"u o=te', 'b\s', 'ä', 'ж'),
        pick(@odd_data), 'written');
}

sub type_libraries {
    for (1 .. 60) {
        my $guid = guid();
        push @libraries, $guid;
        my $key = "$root\\TypeLib\\$guid\\" . chance(3) . '.' . chance(9);
        value($key,                '', ucfirst(pick(@words)) . ' Library');
        value("$key\\0\\win32",    '', path_data('type'));
        value("$key\\FLAGS",       '', '0');
        value("$key\\HELPDIR",     '', path_data('help')) if chance(3) == 0;
        odd_value("$key\\TypeLib") if bad();
    }
}

sub library_reference { return bad() ? pick(guid(), '', 'none') : pick(@libraries) }

sub classes {
    for my $number (1 .. 380) {
        my ($guid, $name) = (guid(), ucfirst(pick(@words)) . ".Class$number");
        push @classes, $guid;
        my $key = "$root\\CLSID\\$guid";
        value($key, '', "$name object");
        value("$root\\$name.1",      '', $name);
        value("$key\\InprocServer32", '', chance(30) ? path_data('library') : '');
        value("$key\\InprocServer32", 'ThreadingModel', 'Both') if chance(2);
        value("$key\\ProgID",         '', bad() ? pick('', 'Gone.1') : "$name.1");
        value("$key\\TypeLib",        '', library_reference()) if chance(3) == 0;
        value("$key\\DefaultIcon",    '', path_data('icon')) if chance(4) == 0;
        value("$key\\LocalServer32",  '', path_data('program')) if chance(5) == 0;
        value($key, pick('TypeLib', 'ProgID', 'CLSID'), library_reference()) if chance(25) == 0;
        odd_value($key . pick('', '\CLSID', '\TypeLib', '\InprocServer')) if chance(10) == 0;
        value("$key\\Data", "long $_", 'C:\\' . pick('gone', 'windows') . '\\' . 'y' x $_)
          for chance(40) ? () : (240, 250, 251, 252, 253, 1020, 1021, 2040, 4090, 9000);
    }
}

sub interfaces {
    for (1 .. 200) {
        my $key = "$root\\Interface\\" . guid();
        value($key,                        '', 'I' . ucfirst pick(@words));
        value("$key\\ProxyStubClsid32",    '', pick(@classes));
        value("$key\\TypeLib",             '', library_reference());
        value("$key\\TypeLib",             'Version', '1.0');
        odd_value("$key\\TypeLib")  if bad();
        odd_value($key)             if chance(20) == 0;
    }
}

sub file_types {
    for my $number (1 .. 120) {
        my $type = ucfirst(pick(@words)) . pick('.File', ' Datei ü', ' Ж.') . $number;
        value("$root\\." . pick(@words) . chance(400), '', bad() ? pick($type, 'CLSID', '') : $type);
        next if bad();
        value("$root\\$type", '', 'A type');
        value("$root\\$type\\DefaultIcon",          '', path_data('icon'));
        value("$root\\$type\\shell\\open\\command", '', path_data('program'));
        value("$root\\$type\\shell\\print\\command", '', path_data('program')) if chance(4) == 0;
    }
    # Deeper than the 260 characters that the 8-bit calls take.
    my $deep = "$root\\Deep.Type";
    value("$root\\.deep", '', 'Deep.Type');
    value($deep .= '\\' . $_ x 48, '', path_data('program')) for 'a' .. 'g';
}

sub machine_keys {
    my $shared = "$version\\SharedDLLs";
    for (1 .. 120) {
        value($shared, path_data('library'), sprintf('dword:%08x', chance(9)), 'written');
    }
    value("$shared\\More", path_data('library'), 'hex:01,00,00,00', 'written') for 1 .. 10;
    for my $fonts ("$version\\Fonts", "$machine\\Microsoft\\Windows NT\\CurrentVersion\\Fonts") {
        for my $number (1 .. 15) {
            my $name = pick(@words) . $number . pick('.ttf', '.fon', '');
            $files{"C:\\Windows\\Fonts\\$name"} = '' if !bad();
            value($fonts, "Font $number", chance(8) ? $name : path_data('icon'));
        }
    }
    my $user = 'HKEY_CURRENT_USER\Software\Microsoft\Windows\CurrentVersion';
    for my $number (1 .. 50) {
        my $key = pick($user, $version) . '\Run' . pick('', '', '\Sub', '\MSTCP 1');
        value($key, "Start $number", path_data('program'));
    }
    my $drivers = 'HKEY_LOCAL_MACHINE\System\CurrentControlSet\Services\VxD';
    for my $number (1 .. 30) {
        value("$drivers\\V$number" . pick('', '\mstcp', '\Sub'), 'StaticVxD', path_data('library'));
    }
    for my $number (1 .. 50) {
        my $program = pick(@words) . "$number.exe";
        value("$version\\App Paths\\$program", '', path_data('program'));
        value("$version\\App Paths\\$program", 'Path', path_data('program')) if chance(3) == 0;
        my $removal = "$version\\Uninstall\\" . pick(@vendors) . $number;
        value($removal, 'UninstallString', path_data('program'));
        my $help = "$machine\\Microsoft\\Windows\\" . pick('Help', 'HTML Help');
        value($help, "h$number.chm", path_data('help'));
    }
}

# A link file with a path in its link info, in 8 bits and if asked for in 16 too, or a relative one.
sub link_file {
    my (%has) = @_;
    my $flags = ($has{path} ? 0x02 : 0) | ($has{relative} ? 0x08 : 0) | 0x80;
    my $link = pack 'V H32 V x52', 0x4C, '0114020000000000c000000000000046', $flags;
    if (my $path = $has{path}) {
        my $head  = $has{wide} ? 0x24 : 0x1C;
        my $drive = pack 'V4 x', 0x11, 3, 0, 0x10;
        my $narrow = Encode::encode('cp1252', $path) . "\0";
        my $end   = $head + length($drive) + length $narrow;
        my $texts = $drive . $narrow . "\0";
        $texts .= wide("$path\0\0") if $has{wide};
        $link .= pack 'V7', $head + length $texts, $head, 1, $head, $head + length $drive, 0, $end;
        $link .= pack 'V2', $end + 1, $end + 1 + 2 * length($path) + 2 if $has{wide};
        $link .= $texts;
    }
    $link .= pack('v', length $has{relative}) . wide($has{relative}) if $has{relative};
    return $link . pack 'V', 0;
}

# A path in 8 bits alone that is outside ASCII can't be judged on each ground: those are good ones.
sub links {
    my $menu = 'C:\ProgramData\Microsoft\Windows\Start Menu\Programs';
    for my $number (1 .. 60) {
        my $path = file('program', chance(3) == 0);
        my %has = (path => $path, wide => 1);
        if ($number % 3 == 1) {
            %has = (relative => '..\\' x 5 . $path =~ s/^C:.//ir);
        } elsif ($number % 3 == 2 && ($path =~ /^\p{ASCII}*$/ || $path =~ /(ü|ß|ö|é)/i && $files{$path})) {
            %has = (path => $path);
        }
        $files{"$menu\\" . pick(@words) . " $number.lnk"} = link_file(%has);
    }
}

sub make_folders {
    my $made = '';
    for my $name (split m{/}, $_[0]) {
        $made .= "$name/";
        -d $made or mkdir $made or die "generate_pc: $made: $!\n";
    }
}

type_libraries();
classes();
interfaces();
file_types();
machine_keys();
links();

my $script = "\x{FEFF}Windows Registry Editor Version 5.00\r\n";
for my $key (sort { lc $a cmp lc $b } keys %keys) {
    $script .= "\r\n[$key]\r\n";
    for my $name (sort { lc $a cmp lc $b } keys %{ $keys{$key} }) {
        my $quoted = $name eq '' ? '@' : '"' . $name =~ s/([\\"])/\\$1/gr . '"';
        $script .= "$quoted=" . written($keys{$key}{$name}) . "\r\n";
    }
}
make_folders("$folder/drives/C");
open my $registry, '>:raw', "$folder/registry.reg" or die "generate_pc: $folder: $!\n";
print {$registry} wide($script);
close $registry or die "generate_pc: $folder: $!\n";
# In the 8-bit code page, as the program reads it.
$files{'C:\Program Files\Tidemark\Ignorelst.ini'} =
  "dovecote 2.0\\draw, \xC9b\xC8ne\\queue\r\n\"Malt\"\r\n";
for my $path (sort keys %files) {
    my $disk = "$folder/drives/" . $path =~ s{:?\\}{/}gr;
    utf8::encode($disk);
    make_folders($disk =~ s{/[^/]+$}{}r);
    open my $file, '>:raw', $disk or die "generate_pc: $disk: $!\n";
    print {$file} $files{$path};
    close $file or die "generate_pc: $disk: $!\n";
}
