# Makes the folders and files of a hosted PC: perl capture_files.pl DRIVES WITH_CONTENTS <ENTRIES
#
# An entry is two texts, each closed by a NUL: a path below DRIVES ("C/Windows/explorer.exe", or
# "C/Temp/" for a folder) and the file that it stands for, empty if there is none to look at.
use strict;
use warnings;

my ($drives, $with_contents) = @ARGV;
my %spelling;    # folded path => path on disk; names that differ in case alone are one on Windows
my ($files, $skipped) = (0, 0);

sub folded {
    my ($path) = @_;
    utf8::decode($path);
    $path = lc $path;
    utf8::encode($path);
    return $path;
}

# The folder's path on disk, made if need be; nothing when it can't be.
sub folder {
    my (@names) = @_;
    my $disk = $drives;
    my $key  = '';
    for my $name (@names) {
        $key .= '/' . folded($name);
        if (!defined $spelling{$key}) {
            my $made = "$disk/$name";
            mkdir $made or return skip("$made: $!");
            $spelling{$key} = $made;
        }
        $disk = $spelling{$key};
    }
    return $disk;
}

sub skip {
    warn "capture-pc: left out $_[0]\n" if ++$skipped <= 10;
    return;
}

sub file {
    my ($path, $source) = @_;
    open my $to, '>:raw', $path or return skip("$path: $!");
    # Shortcuts are read by the program.
    if (($with_contents || $path =~ /\.lnk$/i) && $source ne '') {
        open my $from, '<:raw', $source or return skip("$source: $!");
        print {$to} $_ while read $from, $_, 1 << 20;
    }
    close $to or die "capture-pc: $path: $!\n";
    utime((stat $source)[8, 9], $path) if $source ne '';
    $files++;
}

local $/ = "\0";
while (defined(my $path = <STDIN>)) {
    my $source = <STDIN> // '';
    chomp($path, $source);
    my $is_folder = $path =~ m{/$};
    my @names     = grep { $_ ne '' } split m{/}, $path;
    die "capture-pc: a path that leads out of its drive: $path\n" if grep { /^\.\.?$/ } @names;
    my $name = $is_folder ? undef : pop @names;
    my $folder = folder(@names) // next;
    next if $is_folder;
    my $key = join '', map { '/' . folded($_) } @names, $name;
    next if defined $spelling{$key};
    $spelling{$key} = "$folder/$name";
    file("$folder/$name", $source);
}
print STDERR "capture-pc: $files files", ($skipped ? ", $skipped left out" : ''), "\n";
